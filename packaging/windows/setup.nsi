; The installer for 64-bit Windows. scripts/package-windows.sh calls makensis with VERSION, ROOT (the project),
; PROGRAM (Quorvale.scr), SIGN (a program that signs the file that it is given) and OUTPUT. /S installs without a
; window. The program goes to System32, where Windows looks for savers. A link to it would always start the show, since
; Windows has "/S" in the command for files of its kind. So the links start a copy of it that ends in .exe.

Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
RequestExecutionLevel admin
ManifestDPIAware true

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

Name "Quorvale ${VERSION}"
OutFile "${OUTPUT}"
!uninstfinalize '"${SIGN}" "%1"' = 0
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Quorvale"
VIAddVersionKey FileDescription "Quorvale Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "The Quorvale developers"

!define SAVER "$SYSDIR\Quorvale.scr"
!define STARTER "$INSTDIR\Quorvale.exe"
!define HELP "$WINDIR\Help\Quorvale"
!define MENU "$SMPROGRAMS\Quorvale"
!define SET_UP "${MENU}\Make Quorvale my screen saver.lnk"
!define APPS "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvale"
!define MAKER "Software\Halvern Inc."
!define SETTINGS "${MAKER}\Quorvale Customizable Screen Saver"
!define DESKTOP "Control Panel\Desktop"

!define MUI_ICON "${ROOT}/src/platform/win32/resources/quorvale.ico"
!define MUI_UNICON "${MUI_ICON}"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Make Quorvale my screen saver"
!define MUI_FINISHPAGE_RUN_FUNCTION SetUpAsUser
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_SHOW KeepLists
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var has_lists ; 1: a user who is logged on has some

; /D= has no effect. In a folder of the user's choice the files of others would be deleted with those of Quorvale.
!macro SetFolder
  StrCpy $INSTDIR "$PROGRAMFILES64\Quorvale"
!macroend

; Begins a loop over the users who are logged on, with the key of each below HKU in $2; ${Loop} ends it.
!macro ForEachUser
  StrCpy $1 0
  ${Do}
    EnumRegKey $2 HKU "" $1
    ${IfThen} $2 == "" ${|} ${ExitDo} ${|}
    IntOp $1 $1 + 1
!macroend

Function .onInit
  !insertmacro SetFolder
  StrCpy $has_lists 0
  !insertmacro ForEachUser
    EnumRegValue $3 HKU "$2\${SETTINGS}\PictureFiles" 0
    EnumRegValue $4 HKU "$2\${SETTINGS}\SoundFiles" 0
    ${IfThen} "$3$4" != "" ${|} StrCpy $has_lists 1 ${|}
  ${Loop}
FunctionEnd

Function un.onInit
  !insertmacro SetFolder
FunctionEnd

; The samples take the places of the first entries.
Function KeepLists
  ${If} $has_lists == 1
    SendMessage $mui.FinishPage.Run ${BM_SETCHECK} ${BST_UNCHECKED} 0
  ${EndIf}
FunctionEnd

; This program runs as the administrator. The shell starts what it opens as the user.
Function SetUpAsUser
  Exec '"$WINDIR\explorer.exe" "${SET_UP}"'
FunctionEnd

; A program that runs can't be replaced, but it can be renamed. What is left of it goes with the next start of Windows.
!macro RemoveProgram FILE
  Delete "${FILE}"
  ${If} ${FileExists} "${FILE}"
    GetTempFileName $0 $SYSDIR
    Delete $0
    Rename "${FILE}" $0
    Delete /REBOOTOK $0
    ; The new one works at once. Nobody has to restart Windows for the old one.
    SetRebootFlag false
  ${EndIf}
!macroend

Section
  SetShellVarContext all
  !insertmacro RemoveProgram "${SAVER}"
  !insertmacro RemoveProgram "${STARTER}"
  SetOutPath $SYSDIR
  File "${PROGRAM}"
  ; Nothing of an older version stays.
  RMDir /r "$INSTDIR\samples"
  SetOutPath "$INSTDIR\samples"
  File /r "${ROOT}/assets/samples/*"
  RMDir /r "${HELP}"
  SetOutPath "${HELP}"
  File /r "${ROOT}/help/*"
  SetOutPath $INSTDIR
  File /oname=Quorvale.exe "${PROGRAM}"
  File /oname=License.txt "${ROOT}/LICENSE"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  CreateDirectory "${MENU}"
  SetOutPath $SYSDIR
  CreateShortcut "${MENU}\Quorvale.lnk" "${STARTER}" "/C"
  CreateShortcut "${MENU}\Show.lnk" "${STARTER}" "/S"
  CreateShortcut "${SET_UP}" "${STARTER}" "/INSTALL $INSTDIR\samples\"
  CreateShortcut "${MENU}\Help.lnk" "${HELP}\index.html"
  CreateShortcut "${MENU}\Uninstall.lnk" "$INSTDIR\Uninstall.exe"

  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  ${GetSize} "${HELP}" "/S=0K" $3 $1 $2
  ${GetSize} "$SYSDIR" "/M=Quorvale.scr /S=0K /G=0" $4 $1 $2
  IntOp $0 $0 + $3
  IntOp $0 $0 + $4
  WriteRegStr HKLM "${APPS}" DisplayName "Quorvale"
  WriteRegStr HKLM "${APPS}" DisplayVersion "${VERSION}"
  WriteRegStr HKLM "${APPS}" DisplayIcon "${SAVER}"
  WriteRegStr HKLM "${APPS}" Publisher "The Quorvale developers"
  WriteRegStr HKLM "${APPS}" InstallLocation "$INSTDIR"
  WriteRegStr HKLM "${APPS}" UninstallString '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${APPS}" QuietUninstallString '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${APPS}" EstimatedSize $0
  WriteRegDWORD HKLM "${APPS}" NoModify 1
  WriteRegDWORD HKLM "${APPS}" NoRepair 1
SectionEnd

; Of every user who is logged on, the administrator among them.
Section un.Saver
  !insertmacro ForEachUser
    ReadRegStr $3 HKU "$2\${DESKTOP}" SCRNSAVE.EXE
    ${GetFileName} $3 $3
    ${If} $3 == "Quorvale.scr"
      DeleteRegValue HKU "$2\${DESKTOP}" SCRNSAVE.EXE
    ${EndIf}
  ${Loop}
  ; Windows maps this to the user's registry.
  ReadINIStr $3 "$WINDIR\system.ini" boot SCRNSAVE.EXE
  ${GetFileName} $3 $3
  ${If} $3 == "Quorvale.scr"
    DeleteINIStr "$WINDIR\system.ini" boot SCRNSAVE.EXE
  ${EndIf}
SectionEnd

Section un.Files
  SetShellVarContext all
  !insertmacro RemoveProgram "${SAVER}"
  !insertmacro RemoveProgram "${STARTER}"
  RMDir /r "${HELP}"
  RMDir /r "${MENU}"
  RMDir /r "$INSTDIR"
  DeleteRegKey HKLM "${APPS}"
SectionEnd

Section un.Settings
  MessageBox MB_YESNO|MB_DEFBUTTON2 "Delete your play lists and options as well?" /SD IDNO IDNO keep
  DeleteRegKey HKCU "${SETTINGS}"
  DeleteRegKey /ifempty HKCU "${MAKER}"
  keep:
SectionEnd
