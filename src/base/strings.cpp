#include "base/strings.h"

#include <cstddef>

namespace quorvale::strings {

std::string Fill(std::string_view text, std::initializer_list<std::string_view> values) {
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t place = text[i] == '%' && i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : 9;
    if (place < values.size()) {
      filled += values.begin()[place];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace quorvale::strings
