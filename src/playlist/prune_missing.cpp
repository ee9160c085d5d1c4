#include "playlist/prune_missing.h"

#include "base/failure.h"
#include "playlist/list_entry.h"
#include "system/file_system.h"
#include "toolkit/list_box.h"

namespace quorvale {

PathState PathStatus(FileSystem& files, const std::string& path) {
  if (!path.empty() && files.Syntax().IsSeparator(path.back())) return {.exists = DirExists(files, path)};
  return {.names_file = true, .exists = FileExists(files, path)};
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
    if (!PathStatus(files, EntryPath(list.List(i), syntax)).exists) list.RemoveItem(i);
  }
}

}  // namespace quorvale
