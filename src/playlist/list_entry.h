#pragma once

#include <string>

#include "base/paths.h"

namespace quorvale {

class FileSystem;
class ListBox;

// The width of a play list entry in characters. An entry has two fields padded with blanks: the file name, then from
// column 256 its directory. An entry for a whole directory has the directory in both fields and ends in a separator.
inline constexpr int kListEntryColumns = 512;
inline constexpr int kListEntryDirectoryColumn = 256;

// Fields that are too long are cut: the directory overwrites the tail of a long name.
std::string MakeListEntry(const std::string& name, const std::string& directory);

// The path of an entry; a directory's ends in a separator. A text that is blank from column 255 on is taken as a plain
// path.
std::string EntryPath(const std::string& entry, const PathSyntax& syntax);

// Whether the path exists: as a directory if it ends in a separator, otherwise as a file. A failed search for a file
// is passed on; for a directory it means that it does not exist.
bool PathExists(FileSystem& files, const std::string& path);
bool FileExists(FileSystem& files, const std::string& path);
// False also when the search fails.
bool DirExists(FileSystem& files, const std::string& path);

// Removes entries that no longer exist, beginning at the list's end. Fails as `PathExists`; entries removed before the
// failure stay removed.
void PruneMissing(FileSystem& files, ListBox& list);

}  // namespace quorvale
