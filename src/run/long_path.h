#pragma once

#include <string>

namespace quorvale {

class FileSystem;

// The path with each element in its long name; a path that does not exist comes back unchanged. A closing
// separator stays. A lookup that fails leaves its element out, and the very first one gives an empty result.
std::string GetLongPath(FileSystem& files, const std::string& path);

// The short form of the path of an existing file, or empty.
std::string GetShortPath(FileSystem& files, const std::string& path);

}  // namespace quorvale
