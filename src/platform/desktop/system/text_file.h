#pragma once

#include <optional>
#include <string>

namespace quorvale {

// The bytes of a plain file; empty for a file that is missing, nothing for one that can't be read.
std::optional<std::string> ReadTextFile(const std::string& path);

// Gives a file that content, and keeps the mode of one that is there. It is the old or the new one at any
// moment. False when it could not be written.
bool ReplaceTextFile(const std::string& path, const std::string& text);

// Where a chain of links ends, so that the file is replaced and not the link.
std::string BehindLinks(const std::string& path);

}  // namespace quorvale
