#include "playlist/token.h"

#include <utility>

namespace quorvale {

std::string CutToken(std::string& text, char delimiter) {
  const std::size_t position = text.find(delimiter);
  if (position == std::string::npos) return std::exchange(text, {});
  std::string token = text.substr(0, position);
  text.erase(0, position + 1);
  return token;
}

}  // namespace quorvale
