#include <exception>

#include "config/config_form.h"
#include "playlist/path_part.h"
#include "playlist/play_list_file.h"
#include "playlist/prune_missing.h"
#include "process/process.h"
#include "system/file_system.h"

namespace quorvale {

void frmConfig::SetCurPlayList(std::string path) {
  cur_play_list_ = std::move(path);
  std::string caption = "Play List";
  if (!cur_play_list_.empty()) {
    caption += " - [" + PathPart(cur_play_list_, kPathName, process_.system.files.Syntax()) + "]";
  }
  fraPlayList.SetCaption(LiteralCaption(caption));
}

void frmConfig::WritePlayListFile(const std::string& path) {
  try {
    process_.system.files.WriteFile(path, PlayListText(lstList[0], lstList[1]));
  } catch (const std::exception& failure) {
    App().ShowMessageBox({.text = std::string("Unable to write to Play List File.  ") + failure.what()});
    return;
  }
  SetPlayListDirty(false);
}

void frmConfig::ReadPlayListFile(const std::string& path) {
  FileSystem& files = process_.system.files;
  try {
    AppendPlayListText(files.ReadFile(path, kMostPlayListBytes + 1), files, lstList[0], lstList[1]);
  } catch (const std::exception& failure) {
    App().ShowMessageBox({.text = std::string("Unable to Read Play List File.  ") + failure.what()});
  }
}

SaveAnswer frmConfig::PromptSaveChanges() {
  std::string subject = "Your Play List";
  if (!CurPlayList().empty()) {
    subject += " [" + PathPart(CurPlayList(), kPathName, process_.system.files.Syntax()) + "]";
  }
  switch (App().ShowMessageBox({.text = subject + " has been changed.  Do you want to save your changes?",
                                .title = "Save Play List",
                                .buttons = MessageBoxButtons::kYesNoCancel,
                                .icon = MessageBoxIcon::kQuestion})) {
    case MessageBoxAnswer::kYes:
      mnuSave_Click();
      return PlayListDirty() ? SaveAnswer::kNotDone : SaveAnswer::kSaved;
    case MessageBoxAnswer::kNo:
      SetPlayListDirty(false);
      return SaveAnswer::kGivenUp;
    default:
      return SaveAnswer::kCancel;
  }
}

// Asks about unsaved changes. Only Cancel gives false; a save that was not done does not.
bool frmConfig::MayLeaveLists() { return !PlayListDirty() || PromptSaveChanges() != SaveAnswer::kCancel; }

// For commands with a file dialog: Cancel or any other failure ends the command silently, and the preview continues.
void frmConfig::WithPreviewHeld(const std::function<void()>& body) {
  PausePreview(true);
  try {
    body();
  } catch (const std::exception&) {
  }
  PausePreview(false);
}

void frmConfig::SetUpFileDialog(const std::string& title, const std::string& start_name, const std::string& filter,
                                std::uint32_t flags) {
  CD1.DialogTitle = title;
  CD1.FileName = start_name;
  CD1.Filter = filter;
  CD1.FilterIndex = 0;
  CD1.Flags = flags;
  CD1.MaxFileSize = CommonDialog::kUsualMaxFileSize;
  CD1.CancelError = true;
}

void frmConfig::ShowOpenDialog() {
  SetUpFileDialog("Select Play List", "", "Play Lists (*.qvl)|*.qvl|All Files(*.*)|*.*",
                  kOfnHideReadOnly | kOfnFileMustExist | kOfnExplorer | kOfnLongNames);
  CD1.ShowOpen();
}

void frmConfig::PruneLists() {
  for (ListBox& list : lstList) PruneMissing(process_.system.files, list);
}

void frmConfig::mnuNew_Click() {
  if (!MayLeaveLists()) return;
  SetCurPlayList("");
  for (ListBox& list : lstList) list.Clear();
  Attempt([this] { RefreshPreview(); });
  UpdateCommandStates();
  SetPlayListDirty(false);
}

void frmConfig::mnuOpen_Click() {
  if (!MayLeaveLists()) return;
  WithPreviewHeld([this] {
    ShowOpenDialog();
    const std::string path = CD1.FileName;
    if (path.empty()) return;
    for (ListBox& list : lstList) list.Clear();
    ReadPlayListFile(path);
    PruneLists();
    SetCurPlayList(path);
    UpdateCommandStates();
    SetPlayListDirty(false);
    RefreshPreview();
  });
}

void frmConfig::mnuMergeList_Click() {
  WithPreviewHeld([this] {
    ShowOpenDialog();
    if (CD1.FileName.empty()) return;
    ReadPlayListFile(CD1.FileName);
    PruneLists();
    UpdateCommandStates();
    SetPlayListDirty(true);
    RefreshPreview();
  });
}

void frmConfig::mnuSave_Click() {
  if (CurPlayList().empty()) {
    mnuSaveAs_Click();
  } else {
    WritePlayListFile(CurPlayList());
  }
}

void frmConfig::mnuSaveAs_Click() {
  WithPreviewHeld([this] {
    SetUpFileDialog("Save Play List", CurPlayList(), "Play List Files (*.qvl)|*.qvl|All Files(*.*)|*.*",
                    kOfnHideReadOnly | kOfnOverwritePrompt | kOfnExplorer | kOfnLongNames);
    CD1.ShowSave();
    const std::string path = CD1.FileName;
    if (path.empty()) return;
    WritePlayListFile(path);
    SetCurPlayList(path);
  });
}

}  // namespace quorvale
