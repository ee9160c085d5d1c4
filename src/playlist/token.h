#pragma once

#include <string>

namespace quorvale {

// Removes and returns what precedes the first `delimiter` in `text`; the delimiter is dropped. Without a delimiter
// returns all of `text`. Tokens may be empty, so loop until `text` is empty, not the result.
std::string CutToken(std::string& text, char delimiter);

}  // namespace quorvale
