#include <exception>

#include "base/paths.h"
#include "base/strings.h"
#include "config/config_form.h"
#include "playlist/list_entry.h"
#include "playlist/play_list_file.h"
#include "process/process.h"
#include "system/file_system.h"

namespace quorvale {
namespace {

namespace file_texts = strings::files;

}  // namespace

void ConfigForm::SetCurPlayList(std::string path) {
  cur_play_list_ = std::move(path);
  std::string caption = strings::configuration::kPlayList;
  if (!cur_play_list_.empty()) {
    caption = strings::Fill(strings::configuration::kPlayListNamed,
                            {PathPart(cur_play_list_, kPathName, process_.system.files.Syntax())});
  }
  list_frame.SetCaption(LiteralCaption(caption));
}

void ConfigForm::WritePlayListFile(const std::string& path) {
  try {
    process_.system.files.WriteFile(path, PlayListText(lists[0], lists[1]));
  } catch (const std::exception& failure) {
    App().ShowMessageBox({.text = strings::Fill(file_texts::kNotWritten, {failure.what()})});
    return;
  }
  SetPlayListDirty(false);
}

void ConfigForm::ReadPlayListFile(const std::string& path) {
  FileSystem& files = process_.system.files;
  try {
    AppendPlayListText(files.ReadFile(path, kMostPlayListBytes + 1), files, lists[0], lists[1]);
  } catch (const std::exception& failure) {
    App().ShowMessageBox({.text = strings::Fill(file_texts::kNotRead, {failure.what()})});
  }
}

SaveAnswer ConfigForm::PromptSaveChanges() {
  std::string question = file_texts::kSaveChanges;
  if (!CurPlayList().empty()) {
    question = strings::Fill(file_texts::kSaveChangesNamed,
                             {PathPart(CurPlayList(), kPathName, process_.system.files.Syntax())});
  }
  switch (App().ShowMessageBox({.text = question,
                                .title = file_texts::kSaveTitle,
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

// Asks about unsaved changes. False on Cancel only: a save that fails does not stop the command.
bool ConfigForm::MayLeaveLists() { return !PlayListDirty() || PromptSaveChanges() != SaveAnswer::kCancel; }

// Runs a command with a file dialog. Cancel or any other failure ends it silently, and the preview continues.
void ConfigForm::WithPreviewPaused(const std::function<void()>& body) {
  PausePreview(true);
  try {
    body();
  } catch (const std::exception&) {
  }
  PausePreview(false);
}

void ConfigForm::SetUpFileDialog(const std::string& title, const std::string& start_name, const std::string& filter,
                                 std::uint32_t flags) {
  file_dialog.title = title;
  file_dialog.file_name = start_name;
  file_dialog.filter = filter;
  file_dialog.filter_index = 0;
  file_dialog.flags = flags;
  file_dialog.max_file_size = CommonDialog::kUsualMaxFileSize;
  file_dialog.cancel_error = true;
}

void ConfigForm::ShowOpenDialog() {
  SetUpFileDialog(file_texts::kOpenTitle, "", file_texts::kOpenFilter,
                  kOfnHideReadOnly | kOfnFileMustExist | kOfnExplorer | kOfnLongNames);
  file_dialog.ShowOpen();
}

void ConfigForm::PruneLists() {
  for (ListBox& list : lists) PruneMissing(process_.system.files, list);
}

void ConfigForm::mnuNew_Click() {
  if (!MayLeaveLists()) return;
  SetCurPlayList("");
  for (ListBox& list : lists) list.Clear();
  Attempt([this] { RefreshPreview(); });
  UpdateCommandStates();
  SetPlayListDirty(false);
}

void ConfigForm::mnuOpen_Click() {
  if (!MayLeaveLists()) return;
  WithPreviewPaused([this] {
    ShowOpenDialog();
    const std::string path = file_dialog.file_name;
    if (path.empty()) return;
    for (ListBox& list : lists) list.Clear();
    ReadPlayListFile(path);
    PruneLists();
    SetCurPlayList(path);
    UpdateCommandStates();
    SetPlayListDirty(false);
    RefreshPreview();
  });
}

void ConfigForm::mnuMergeList_Click() {
  WithPreviewPaused([this] {
    ShowOpenDialog();
    if (file_dialog.file_name.empty()) return;
    ReadPlayListFile(file_dialog.file_name);
    PruneLists();
    UpdateCommandStates();
    SetPlayListDirty(true);
    RefreshPreview();
  });
}

void ConfigForm::mnuSave_Click() {
  if (CurPlayList().empty()) {
    mnuSaveAs_Click();
  } else {
    WritePlayListFile(CurPlayList());
  }
}

void ConfigForm::mnuSaveAs_Click() {
  WithPreviewPaused([this] {
    SetUpFileDialog(file_texts::kSaveTitle, CurPlayList(), file_texts::kSaveFilter,
                    kOfnHideReadOnly | kOfnOverwritePrompt | kOfnExplorer | kOfnLongNames);
    file_dialog.ShowSave();
    const std::string path = file_dialog.file_name;
    if (path.empty()) return;
    WritePlayListFile(path);
    SetCurPlayList(path);
  });
}

}  // namespace quorvale
