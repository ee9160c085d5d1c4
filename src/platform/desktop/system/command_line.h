#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvale {

// The program and its arguments: pieces divided by blanks and tabs. Double quotes hold a piece together and
// are left out, so "" is an empty argument; nothing else has a meaning of its own.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

}  // namespace quorvale
