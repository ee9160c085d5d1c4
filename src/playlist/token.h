#pragma once

#include <string>

namespace quorvale {

// Cuts the text in front of the first `delimiter` off `text`, the delimiter with it, and returns it.
// Without a delimiter the whole text is cut off. An empty result does not mean that `text` is used up.
std::string CutToken(std::string& text, char delimiter);

}  // namespace quorvale
