#include "platform/pictures/orientation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace quorvale {
namespace {

// By the number that cameras store.
constexpr std::array<Orientation, 9> kOrientations{{{},
                                                    {},
                                                    {false, true, false},
                                                    {false, true, true},
                                                    {false, false, true},
                                                    {true, false, false},
                                                    {true, true, false},
                                                    {true, true, true},
                                                    {true, false, true}}};

}  // namespace

Orientation Orientation::FromExif(int number) {
  return number >= 1 && number <= 8 ? kOrientations[static_cast<std::size_t>(number)] : Orientation{};
}

PixelRect Orientation::ToStored(const PixelRect& part, PixelSize shown) const {
  PixelRect stored = part;
  if (mirrored) stored.left = shown.width - part.Right();
  if (flipped) stored.top = shown.height - part.Bottom();
  if (transposed) {
    std::swap(stored.left, stored.top);
    std::swap(stored.width, stored.height);
  }
  return stored;
}

void Orientation::PlaceRow(const Pixel* row, int y, const PixelView& shown_part) const {
  const int across = transposed ? y : 0;
  const int down = transposed ? 0 : y;
  const int x = mirrored ? shown_part.width - 1 - across : across;
  Pixel* to = shown_part.Row(flipped ? shown_part.height - 1 - down : down) + x;
  const int count = transposed ? shown_part.height : shown_part.width;
  const std::ptrdiff_t step = transposed ? (flipped ? -shown_part.stride : shown_part.stride) : (mirrored ? -1 : 1);
  if (step == 1) {
    std::copy_n(row, count, to);
    return;
  }
  for (int i = 0; i < count; ++i) to[i * step] = row[i];
}

}  // namespace quorvale
