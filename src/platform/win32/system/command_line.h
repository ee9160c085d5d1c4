#pragma once

#include <string>
#include <string_view>

namespace quorvale {

// The program's own command line, without its path.
std::string CommandText();

// What stands behind the program's path, which may be in quotes, in a whole command line.
std::string_view SkipProgram(std::string_view command_line);

}  // namespace quorvale
