#pragma once

#include <string>

namespace quorvale {

class FileSystem;

// Replaces each short name in the path by its long one and keeps a trailing separator. Returns `path` itself if there
// is no such file. An element whose lookup fails is left out; if the first lookup fails, the result is empty.
std::string GetLongPath(FileSystem& files, const std::string& path);

// The short (8.3) form of an existing file's path; empty if there is none.
std::string GetShortPath(FileSystem& files, const std::string& path);

}  // namespace quorvale
