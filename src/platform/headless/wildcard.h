#pragma once

#include <string_view>

namespace quorvale {

// Whether `name` is one that `pattern` stands for: "*" for any characters, "?" for one byte, without
// regard to ASCII case.
bool MatchesWildcard(std::string_view name, std::string_view pattern);

}  // namespace quorvale
