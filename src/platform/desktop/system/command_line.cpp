#include "platform/desktop/system/command_line.h"

#include <utility>

namespace quorvale {

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> pieces;
  std::string piece;
  bool is_in_piece = false;
  bool is_quoted = false;
  for (const char c : command_line) {
    if (c == '"') {
      is_quoted = !is_quoted;
      is_in_piece = true;
    } else if (!is_quoted && (c == ' ' || c == '\t')) {
      if (std::exchange(is_in_piece, false)) pieces.push_back(std::exchange(piece, {}));
    } else {
      piece += c;
      is_in_piece = true;
    }
  }
  if (is_in_piece) pieces.push_back(std::move(piece));
  return pieces;
}

}  // namespace quorvale
