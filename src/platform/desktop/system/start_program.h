#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvale {

// Splits a command line into the program and its arguments, at blanks and tabs outside double quotes. The quotes are
// removed, so "" is an empty argument. There is no other special character.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

// Starts a program, found by PATH, in a new session and returns without waiting. `input` is an open file that becomes
// its standard input; if negative, the program inherits ours. Fails with kNotFound if there is no such program.
void StartProgram(const std::vector<std::string>& arguments, int input = -1);

// Whether there is a program of that name in PATH.
bool IsInstalled(const std::string& program);

}  // namespace quorvale
