#include "playlist/list_entry.h"

#include "base/failure.h"
#include "base/text.h"
#include "system/file_system.h"
#include "toolkit/list_box.h"

namespace quorvale {
namespace {

// Reading stops one column before the directory's: column 255 separates the two and is read with the directory.
constexpr std::size_t kNameColumnsRead = 254;

}  // namespace

std::string MakeListEntry(const std::string& name, const std::string& directory) {
  std::string entry(kListEntryColumns, ' ');
  Overlay(entry, 1, name);
  Overlay(entry, kListEntryDirectoryColumn, directory);
  return entry;
}

std::string EntryPath(const std::string& entry, const PathSyntax& syntax) {
  std::string head = Trim(Left(entry, kNameColumnsRead));
  if (!head.empty() && syntax.IsSeparator(head.back())) return Trim(Left(entry, kNameColumnsRead + 1));
  return Trim(Mid(entry, kNameColumnsRead + 1)) + head;
}

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
