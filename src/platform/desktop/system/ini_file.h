#pragma once

#include <string>

namespace quorvale {

// The text of an INI file in which `key` of `section` has `value`. The line that has it is changed, or one
// is added at the end of the section, or the section at the end of the file; every other line stays as it
// is, comments included. Section and key compare without regard to ASCII case.
std::string SetIniValue(const std::string& text, const std::string& section, const std::string& key,
                        const std::string& value);

// Does so in a file, which is created if it is missing. The file is the old or the new one at any moment.
// False when it could not be written or a text holds a line break, which no line can.
bool WriteIniValue(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& value);

}  // namespace quorvale
