#pragma once

#include <string>
#include <string_view>

namespace quorvale {

// Appends what a file name compares by: its characters in upper case, one for one as NTFS has them, in a
// form whose bytes are in the order of the UTF-16 units. Bytes that are no UTF-8 stay as they are.
void AppendFolded(std::string_view name, std::string& folded);

// Whether a name matches a pattern, both folded: "*" stands for any text, "?" for one character.
bool MatchesFolded(std::string_view folded_name, std::string_view folded_pattern);

}  // namespace quorvale
