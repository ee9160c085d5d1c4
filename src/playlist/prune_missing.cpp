#include "playlist/prune_missing.h"

#include "base/failure.h"
#include "playlist/list_entry.h"
#include "system/file_system.h"
#include "toolkit/list_box.h"

namespace quorvale {

bool PathExists(FileSystem& files, const std::string& path) {
  const bool names_directory = !path.empty() && files.Syntax().IsSeparator(path.back());
  return names_directory ? DirExists(files, path) : FileExists(files, path);
}

bool FileExists(FileSystem& files, const std::string& path) { return !files.FindFile(path, kAttributeNormal).empty(); }

bool DirExists(FileSystem& files, const std::string& path) {
  try {
    return !files.FindFile(path, kAttributeDirectory).empty();
  } catch (const Failure&) {
    return false;
  }
}

void PruneMissing(FileSystem& files, ListBox& list) {
  const PathSyntax syntax = files.Syntax();
  for (int i = list.ListCount() - 1; i >= 0; --i) {
    if (!PathExists(files, EntryPath(list.List(i), syntax))) list.RemoveItem(i);
  }
}

}  // namespace quorvale
