#pragma once

#include <optional>
#include <string>

namespace quorvale {

// Gives `content` the first `most` bytes of a plain file. 0, or the system's number of what went wrong; what is no
// plain file fails without waiting.
int ReadPlainFile(const std::string& path, std::string& content, std::size_t most = std::string::npos);

// Gives a plain file that content, and makes it where it is missing. The new content is written beside the file
// and then takes its place, with its mode and through links; where the folder can't be written the file itself
// is. 0, or the system's number of what went wrong.
int WritePlainFile(const std::string& path, const std::string& content);

// The bytes of a plain file; empty for a file that is missing, nothing for one that can't be read.
std::optional<std::string> ReadTextFile(const std::string& path);

// Gives a file that content, and keeps the mode of one that is there. It is the old or the new one at any
// moment. False when it could not be written.
bool ReplaceTextFile(const std::string& path, const std::string& text);

// Where a chain of links ends, so that the file is replaced and not the link.
std::string BehindLinks(const std::string& path);

}  // namespace quorvale
