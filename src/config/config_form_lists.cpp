#include "base/strings.h"
#include "base/text.h"
#include "config/config_form.h"
#include "config/list_editing.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"
#include "process/process.h"
#include "system/file_system.h"

namespace quorvale {
namespace {

namespace adding_texts = strings::adding;

// In characters; platforms return more if more is selected.
constexpr int kFileNameBuffer = 10'000;

std::string WithSeparator(std::string directory, const PathSyntax& syntax) {
  if (!syntax.IsSeparator(directory.back())) directory += syntax.separator;
  return directory;
}

}  // namespace

void ConfigForm::cmdImages_Click(int index) {
  EditVisibleList([this, index] { RunListCommand(index); });
}

// If a dialog can't be shown, the action ends, but the preview must continue.
void ConfigForm::EditVisibleList(const std::function<void()>& action) {
  PausePreview(true);
  process_.show.preview_suspended = true;
  Attempt(action);
  Attempt([this] { RefreshPreview(); });
  UpdateCommandStates();
  PausePreview(false);
}

void ConfigForm::RunListCommand(int index) {
  switch (index) {
    case kAddFiles:
      AddFiles();
      break;
    case kAddDirectory:
      AddDirectory();
      break;
    case kRemove:
      RemoveSelected(VisibleList());
      SetPlayListDirty(true);
      break;
    case kMoveUp:
    case kMoveDown:
      MoveSelected(VisibleList(), index == kMoveUp ? -1 : 1);
      SetPlayListDirty(true);
      break;
    default:
      break;
  }
}

void ConfigForm::AddFiles() {
  const bool pictures = view_pictures.Value();
  const std::string mask = pictures ? PictureMask(process_.options.MoreKinds()) : kSoundMask;
  SetUpFileDialog(adding_texts::kSelectFiles, "",
                  strings::Fill(pictures ? adding_texts::kPictureFilter : adding_texts::kSoundFilter, {mask}),
                  kOfnHideReadOnly | kOfnAllowMultiSelect | kOfnFileMustExist | kOfnExplorer | kOfnLongNames);
  file_dialog.max_file_size = kFileNameBuffer;
  file_dialog.cancel_error = false;
  file_dialog.ShowOpen();
  if (file_dialog.file_name.empty()) return;
  const PathSyntax syntax = process_.system.files.Syntax();
  Collection names;
  std::string directory;
  ParseFileSelection(file_dialog, syntax, names, directory);
  SetPlayListDirty(true);
  EntryAdder adder(VisibleList(), syntax);
  for (int i = 1; i <= names.Count(); ++i) adder.AddFile(names.Item(i), directory);
  adder.ReportLeftOut(App());
}

void ConfigForm::AddDirectory() {
  const std::string chosen = App().GetPlatform().BrowseForFolder(Window(), adding_texts::kSelectDirectory);
  if (Trim(chosen).empty()) return;
  const PathSyntax syntax = process_.system.files.Syntax();
  EntryAdder adder(VisibleList(), syntax);
  adder.AddDirectory(WithSeparator(chosen, syntax));
  if (adder.Added() > 0) SetPlayListDirty(true);
  adder.ReportLeftOut(App());
}

void ConfigForm::mnuAddFiles_Click() {
  PausePreview(true);
  cmdImages_Click(kAddFiles);
  PausePreview(false);
}

void ConfigForm::mnuAddDir_Click() {
  PausePreview(true);
  cmdImages_Click(kAddDirectory);
  PausePreview(false);
}

void ConfigForm::lstList_Dropped(const std::vector<std::string>& paths) {
  EditVisibleList([this, &paths] {
    FileSystem& files = process_.system.files;
    const PathSyntax syntax = files.Syntax();
    EntryAdder adder(VisibleList(), syntax);
    for (const std::string& path : paths) {
      if (path.empty()) continue;
      const std::string directory = WithSeparator(path, syntax);
      if (DirExists(files, directory)) {
        adder.AddDirectory(directory);
      } else {
        const std::size_t name = NameStart(path, syntax);
        adder.AddFile(path.substr(name), path.substr(0, name));
      }
    }
    if (adder.Added() > 0) SetPlayListDirty(true);
    adder.ReportLeftOut(App());
  });
}

void ConfigForm::lstList_DeletePressed() {
  if (list_buttons[kRemove].Enabled()) cmdImages_Click(kRemove);
}

}  // namespace quorvale
