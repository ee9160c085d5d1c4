#pragma once

#include <string>

namespace quorvale {

class FileSystem;
class ListBox;

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
