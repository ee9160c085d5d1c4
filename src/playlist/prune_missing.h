#pragma once

#include <string>

namespace quorvale {

class FileSystem;
class ListBox;

// Whether what the path names is there: a directory where it ends in a separator, else a file. A failure of the search
// comes out of the first two, except where the path names a directory.
bool PathExists(FileSystem& files, const std::string& path);
bool FileExists(FileSystem& files, const std::string& path);
// A directory that can't be looked for counts as missing.
bool DirExists(FileSystem& files, const std::string& path);

// Removes the items whose file or directory is gone, from the last to the first. Fails as `FileExists`, and
// what was removed before is gone.
void PruneMissing(FileSystem& files, ListBox& list);

}  // namespace quorvale
