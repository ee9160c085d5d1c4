#pragma once

#include <string>

namespace quorvale {

// What a run of the program does.
enum class RunMode {
  kConfiguration,  // "/C", or no switch at all
  kShow,           // "/S"
  kPreview,        // "/P"
  kPassword,       // "/A"
  kNone,           // anything else: the set-up if the command line has its switch, otherwise nothing
};

// The mode that a command line (without the program's path) asks for. Its first two characters decide; case is ignored.
RunMode RunModeOf(const std::string& text);

}  // namespace quorvale
