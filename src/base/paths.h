#pragma once

#include <cstddef>
#include <string_view>

namespace quorvale {

// Where the name behind the last separator begins: 0 without a separator, the path's size if it ends in one. Each
// character of `separators` is one.
inline std::size_t NameStart(std::string_view path, std::string_view separators) {
  return path.find_last_of(separators) + 1;
}

}  // namespace quorvale
