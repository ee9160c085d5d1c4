#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/win32/system/handle.h"

namespace quorvale {

// Opens a plain file; others may delete it meanwhile. Fails with kNotFound or kUnreadable.
Handle OpenForReading(const std::string& path);

// Reads the next bytes, at most as many as `to` takes, and gives their number: 0 at the end. Fails with
// kUnreadable.
std::size_t ReadSome(const Handle& file, std::span<std::uint8_t> to, const std::string& path);

// Gives a file that content, all of it or none: until it is whole the old one stays. Fails with kUnwritable.
void ReplaceFileContent(const std::string& path, const std::string& content);

}  // namespace quorvale
