#pragma once

#include <string>

namespace quorvale {

// Makes `command` the only saver that runs in the text of XScreenSaver's settings file, and returns the new text: the
// command becomes the first program, and `mode` and `selected` select it. Other lines of the same program are removed,
// all else stays. In an empty text only these settings are written; XScreenSaver adds its own programs.
std::string SelectSaver(const std::string& text, const std::string& command);

// The same in the file `.xscreensaver` of that home. The old file is kept as `.xscreensaver.before-quorvale`. False if
// a file can't be read or written, or if the command has characters that the file can't hold; nothing changes then.
bool SelectSaverOfUser(const std::string& home, const std::string& command);

// Makes the program the user's saver. True on success, and where XScreenSaver is not installed.
bool BecomeSaverOfUser(const std::string& program_directory, const std::string& program_name);

}  // namespace quorvale
