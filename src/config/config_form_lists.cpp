#include "base/text.h"
#include "config/config_form.h"
#include "config/entry_adder.h"
#include "config/list_editing.h"
#include "playlist/media_collections.h"
#include "playlist/prune_missing.h"
#include "process/process.h"
#include "system/file_system.h"

namespace quorvale {
namespace {

// In characters; platforms return more if more is selected.
constexpr int kFileNameBuffer = 10'000;

std::string WithSeparator(std::string directory, const PathSyntax& syntax) {
  if (!syntax.IsSeparator(directory.back())) directory += syntax.separator;
  return directory;
}

}  // namespace

void frmConfig::cmdImages_Click(int index) {
  EditListOnView([this, index] { RunListCommand(index); });
}

// If a dialog can't be shown, the action ends, but the preview must continue.
void frmConfig::EditListOnView(const std::function<void()>& action) {
  PausePreview(true);
  process_.show.PreviewSuspended = true;
  Attempt(action);
  Attempt([this] { RefreshPreview(); });
  UpdateCommandStates();
  PausePreview(false);
}

void frmConfig::RunListCommand(int index) {
  switch (index) {
    case kAddFiles:
      AddFiles();
      break;
    case kAddDirectory:
      AddDirectory();
      break;
    case kRemove:
      RemoveSelected(ListOnView());
      SetPlayListDirty(true);
      break;
    case kMoveUp:
    case kMoveDown:
      MoveSelected(ListOnView(), index == kMoveUp ? -1 : 1);
      SetPlayListDirty(true);
      break;
    default:
      break;
  }
}

void frmConfig::AddFiles() {
  const bool pictures = OptPicture.Value();
  const std::string mask = pictures ? PictureMask() : kSoundMask;
  SetUpFileDialog("Select One or More Files to Add", "",
                  (pictures ? "Pictures (" : "Sounds (") + mask + ")|" + mask + "|All Files(*.*)|*.*",
                  kOfnHideReadOnly | kOfnAllowMultiSelect | kOfnFileMustExist | kOfnExplorer | kOfnLongNames);
  CD1.MaxFileSize = kFileNameBuffer;
  CD1.CancelError = false;
  CD1.ShowOpen();
  if (CD1.FileName.empty()) return;
  const PathSyntax syntax = process_.system.files.Syntax();
  Collection names;
  std::string directory;
  ParseFileSelection(CD1, syntax, names, directory);
  SetPlayListDirty(true);
  EntryAdder adder(ListOnView(), syntax);
  for (int i = 1; i <= names.Count(); ++i) adder.AddFile(names.Item(i), directory);
  adder.TellLeftOut(App());
}

void frmConfig::AddDirectory() {
  const std::string chosen = App().GetPlatform().BrowseForFolder(Window(), "Select Directory");
  if (Trim(chosen).empty()) return;
  const PathSyntax syntax = process_.system.files.Syntax();
  EntryAdder adder(ListOnView(), syntax);
  adder.AddDirectory(WithSeparator(chosen, syntax));
  if (adder.Added() > 0) SetPlayListDirty(true);
  adder.TellLeftOut(App());
}

void frmConfig::mnuAddFiles_Click() {
  PausePreview(true);
  cmdImages_Click(kAddFiles);
  PausePreview(false);
}

void frmConfig::mnuAddDir_Click() {
  PausePreview(true);
  cmdImages_Click(kAddDirectory);
  PausePreview(false);
}

void frmConfig::lstList_Dropped(const std::vector<std::string>& paths) {
  EditListOnView([this, &paths] {
    FileSystem& files = process_.system.files;
    const PathSyntax syntax = files.Syntax();
    EntryAdder adder(ListOnView(), syntax);
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
    adder.TellLeftOut(App());
  });
}

void frmConfig::lstList_DeletePressed() {
  if (cmdImages[kRemove].Enabled()) cmdImages_Click(kRemove);
}

}  // namespace quorvale
