#include "platform/win32/system/command_line.h"

#include <algorithm>

#include "platform/win32/windows_api.h"

namespace quorvale {

std::string CommandText() { return std::string(SkipProgram(GetCommandLineA())); }

// The run-time library's own way takes the letters of a path that are not ASCII for blanks.
std::string_view SkipProgram(std::string_view command_line) {
  bool is_quoted = false;
  std::size_t at = 0;
  for (; at < command_line.size(); ++at) {
    if (command_line[at] == '"') is_quoted = !is_quoted;
    if (!is_quoted && (command_line[at] == ' ' || command_line[at] == '\t')) break;
  }
  return command_line.substr(std::min(command_line.find_first_not_of(" \t", at), command_line.size()));
}

}  // namespace quorvale
