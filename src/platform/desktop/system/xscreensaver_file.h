#pragma once

#include <string>

namespace quorvale {

// The text of XScreenSaver's settings file in which `command` is the one saver that runs: the first of the
// programs, with `mode` and `selected` set to it. A line of the same program further down is left out, and
// every other line stays as it is. An empty text gives a file with what is needed; XScreenSaver adds its own
// programs to the list.
std::string SelectSaver(const std::string& text, const std::string& command);

// Does so in the `.xscreensaver` of that home and leaves a copy of what was there beside it, in
// `.xscreensaver.before-quorvale`. False when a file could not be read or written or no line can hold the
// command; the settings are then as they were.
bool SelectSaverOfUser(const std::string& home, const std::string& command);

// Makes that program the saver of the user, where XScreenSaver is installed; else it does nothing and gives
// true.
bool BecomeSaverOfUser(const std::string& program_directory, const std::string& program_name);

}  // namespace quorvale
