#pragma once

#include <string>

namespace quorvale {

// What a run of the program does.
enum class RunMode {
  kConfiguration,  // "/C", or no switch at all
  kShow,           // "/S"
  kPreview,        // "/P"
  kPassword,       // "/A"
  kNone,           // anything else: the set-up where its switch stands in the command line, or nothing
};

// The mode that a command line without the program's own path asks for, by its first two characters in either case.
RunMode RunModeOf(const std::string& text);

}  // namespace quorvale
