#pragma once

#include <string>

namespace quorvale {

// The running program's file, with its directory.
std::string ProgramPath();

}  // namespace quorvale
