#pragma once

#include <string>

namespace quorvale {

// Sets one value in the text of an INI file and returns the new text. A missing line is added at the section's end, a
// missing section at the file's end. All other lines stay, comments included. Section and key ignore ASCII case.
std::string SetIniValue(const std::string& text, const std::string& section, const std::string& key,
                        const std::string& value);

// The same in a file, which is created if it is missing and has the old or the new content at any moment. False if it
// can't be written, or if one of the texts contains a line break.
bool WriteIniValue(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& value);

}  // namespace quorvale
