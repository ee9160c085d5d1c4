#pragma once

#include <string>
#include <vector>

namespace quorvale {

// Starts a program that is looked for in PATH, in a session of its own, and returns without waiting. `input` is
// the open file that becomes its standard input; below 0 it is ours. Fails with kNotFound when there is no
// such program.
void StartProgram(const std::vector<std::string>& arguments, int input = -1);

// Whether PATH leads to a program of that name.
bool IsInstalled(const std::string& program);

}  // namespace quorvale
