#include "platform/headless/block_text.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace quorvale {
namespace {

struct Cell {
  int width = 0;
  int height = 0;
};

Cell CellOf(const Font& font, float scale) {
  const double em = ToPixels(font.points * kTwipsPerPoint, scale);
  return {.width = std::max(1, static_cast<int>(std::lround(em / 2))),
          .height = std::max(1, static_cast<int>(std::lround(em * 1.2)))};
}

}  // namespace

PixelRect BlockTextPainter::Measure(const std::string& text, const Font& font, float scale) {
  const Cell cell = CellOf(font, scale);
  return {0, 0, cell.width * static_cast<int>(Length(text)), cell.height};
}

PixelRect BlockTextPainter::Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                                 Colour colour, float scale) {
  const Cell cell = CellOf(font, scale);
  const int block_width = std::max(1, cell.width - 1);
  const int block_height = std::max(1, cell.height - 1);
  const int count = static_cast<int>(Length(text));
  for (int i = 0; i < count; ++i) {
    if (Left(Mid(text, static_cast<std::size_t>(i) + 1), 1) == " ") continue;
    const PixelRect block = Intersect({left + i * cell.width, top, block_width, block_height}, target.Bounds());
    for (int y = block.top; y < block.Bottom(); ++y) {
      std::fill_n(target.Row(y) + block.left, block.width, ToPixel(colour));
    }
  }
  return Intersect({left, top, count * cell.width, cell.height}, target.Bounds());
}

}  // namespace quorvale
