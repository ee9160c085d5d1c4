#include "platform/win32/widgets/system_dialogs.h"

#include <cderr.h>
#include <commdlg.h>
#include <objbase.h>
#include <shlobj.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string_view>

#include "base/failure.h"
#include "platform/win32/system/com.h"
#include "platform/win32/system/system_text.h"

namespace quorvale {
namespace {

UINT ToWin32(MessageBoxButtons buttons) {
  switch (buttons) {
    case MessageBoxButtons::kOk:
      return MB_OK;
    case MessageBoxButtons::kYesNoCancel:
      return MB_YESNOCANCEL;
    case MessageBoxButtons::kAbortRetryIgnore:
      return MB_ABORTRETRYIGNORE;
  }
  return MB_OK;
}

UINT ToWin32(MessageBoxIcon icon) {
  switch (icon) {
    case MessageBoxIcon::kNone:
      return 0;
    case MessageBoxIcon::kInformation:
      return MB_ICONINFORMATION;
    case MessageBoxIcon::kExclamation:
      return MB_ICONEXCLAMATION;
    case MessageBoxIcon::kQuestion:
      return MB_ICONQUESTION;
  }
  return 0;
}

// The program's active window, which the box disables while it is there.
HWND Owner() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (GetGUIThreadInfo(GetCurrentThreadId(), &info) == 0 || info.hwndActive == nullptr) return nullptr;
  return IsWindowVisible(info.hwndActive) != 0 ? info.hwndActive : nullptr;
}

BOOL CALLBACK StopAtVisibleDialog(HWND window, LPARAM found) {
  wchar_t name[8] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  // The window class of the system's dialogs.
  if (IsWindowVisible(window) == 0 || std::wstring_view(name) != L"#32770") return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// The topmost of the system's dialogs in this program, or null.
HWND TopmostDialog() {
  HWND dialog = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &StopAtVisibleDialog, reinterpret_cast<LPARAM>(&dialog));
  return dialog;
}

// In characters. Enough for ten thousand files; if there are more, the user has to choose again in a second dialog.
constexpr std::size_t kLeastRoom = 1U << 20U;
constexpr std::size_t kMostRoom = 1U << 26U;

// The filter in the dialog's form: a list of NUL-terminated texts with one more NUL at its end.
std::wstring FilterList(std::string text) {
  std::replace(text.begin(), text.end(), '|', '\0');
  return ToWide(text) + L'\0';
}

// Joins a list of NUL-terminated texts, which ends with an empty one, by NULs.
std::string Joined(const wchar_t* texts) {
  std::string joined;
  for (const wchar_t* text = texts; *text != L'\0'; text += std::wstring_view(text).size() + 1) {
    if (!joined.empty()) joined += '\0';
    joined += FromWide(text);
  }
  return joined;
}

struct FreeTaskMemory {
  void operator()(void* memory) const { CoTaskMemFree(memory); }
};

// Shows the dialog once. Returns the system's error, or 0. Then `path` holds the answer, and nothing after Cancel.
DWORD AskForFiles(HWND owner, const FileDialog& dialog, std::wstring& path) {
  const std::wstring filter = FilterList(dialog.filter);
  const std::wstring title = ToWide(dialog.title);
  OPENFILENAMEW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.lpstrFilter = dialog.filter.empty() ? nullptr : filter.c_str();
  request.nFilterIndex = static_cast<DWORD>(std::max(1, dialog.filter_index));
  request.lpstrFile = path.data();
  request.nMaxFile = static_cast<DWORD>(path.size());
  request.lpstrTitle = dialog.title.empty() ? nullptr : title.c_str();
  // The dialog must not change the current directory, which the program's relative paths depend on.
  request.Flags = dialog.flags | OFN_EXPLORER | OFN_NOCHANGEDIR;
  if ((dialog.save ? GetSaveFileNameW(&request) : GetOpenFileNameW(&request)) != 0) return 0;
  const DWORD error = CommDlgExtendedError();
  path.front() = L'\0';
  return error;
}

// The dialog of systems that lack the one below.
std::string BrowseFolderTree(HWND owner, const std::string& title) {
  const std::wstring wide_title = ToWide(title);
  BROWSEINFOW request{};
  request.hwndOwner = owner;
  request.lpszTitle = wide_title.c_str();
  request.ulFlags = BIF_RETURNONLYFSDIRS;
  const std::unique_ptr<ITEMIDLIST, FreeTaskMemory> chosen(SHBrowseForFolderW(&request));
  std::array<wchar_t, MAX_PATH> path{};
  if (!chosen || SHGetPathFromIDListW(chosen.get(), path.data()) == 0) return {};
  return FromWide(path.data());
}

}  // namespace

MessageBoxAnswer ShowWin32MessageBox(const MessageBox& box, const std::string& application_title,
                                     EndedLoops& ended_loops) {
  std::string text = box.text;
  std::replace(text.begin(), text.end(), '\r', '\n');
  const HWND owner = Owner();
  const UINT kind = ToWin32(box.buttons) | ToWin32(box.icon) | MB_SETFOREGROUND | MB_TOPMOST |
                    (owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL);
  // First called while the box is on the screen. With the user's answer the box disappears, but the call returns only
  // when an effect inside it has ended.
  const EndedLoops::Loop loop(ended_loops, [shown = HWND()]() mutable {
    if (shown == nullptr) shown = TopmostDialog();
    return shown != nullptr && IsWindowVisible(shown) == 0;
  });
  return static_cast<MessageBoxAnswer>(MessageBoxW(
      owner, ToWide(text).c_str(), ToWide(box.title.empty() ? application_title : box.title).c_str(), kind));
}

std::string ShowWin32FileDialog(HWND owner, const FileDialog& dialog) {
  std::wstring start = ToWide(dialog.start_name);
  std::size_t room = std::max({start.size() + 1, static_cast<std::size_t>(dialog.max_file_size), kLeastRoom});
  while (true) {
    std::wstring path = start;
    path.resize(room);
    const DWORD error = AskForFiles(owner, dialog, path);
    if (error == FNERR_BUFFERTOOSMALL && room < kMostRoom) {
      room *= 8;
    } else if (error == FNERR_INVALIDFILENAME && !start.empty()) {
      // The dialog does not open if it finds the initial name invalid.
      start.clear();
    } else if (error != 0) {
      throw Failure(FailureNumber::kInternal, "The file dialog failed: " + std::to_string(error), "Windows");
    } else {
      // A single answer ends at its NUL. The rest of the buffer may still hold the initial name.
      return (dialog.flags & kOfnAllowMultiSelect) != 0 ? Joined(path.c_str()) : FromWide(path.c_str());
    }
  }
}

Colour ShowWin32ColourDialog(HWND owner, Colour start, OwnColours& own_colours) {
  CHOOSECOLORW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.rgbResult = start;
  request.lpCustColors = own_colours.data();
  request.Flags = CC_RGBINIT;
  return ChooseColorW(&request) != 0 ? static_cast<Colour>(request.rgbResult) : start;
}

std::string BrowseWin32Folder(HWND owner, const std::string& title) {
  ComPointer<IFileOpenDialog> dialog;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(dialog.Out())))) {
    return BrowseFolderTree(owner, title);
  }
  dialog->SetTitle(ToWide(title).c_str());
  FILEOPENDIALOGOPTIONS options = 0;
  ComPointer<IShellItem> chosen;
  wchar_t* path = nullptr;
  const bool has_answer =
      SUCCEEDED(dialog->GetOptions(&options)) &&
      // The dialog must not change the current directory, as for files.
      SUCCEEDED(dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR)) &&
      SUCCEEDED(dialog->Show(owner)) && SUCCEEDED(dialog->GetResult(chosen.Out())) &&
      SUCCEEDED(chosen->GetDisplayName(SIGDN_FILESYSPATH, &path));
  const std::unique_ptr<wchar_t, FreeTaskMemory> owned(path);
  return has_answer ? FromWide(path) : std::string();
}

}  // namespace quorvale
