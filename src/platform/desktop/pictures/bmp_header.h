#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "platform/desktop/pictures/picture_file.h"
#include "toolkit/pixel_view.h"

namespace quorvale {

// What the head of a bitmap file says, of Windows or OS/2.
struct BmpHeader {
  bool IsPalette() const { return bits <= 8; }
  bool IsOpaque() const { return masks[3] == 0; }

  int width = 0;
  int height = 0;
  // Elsewhere the last row comes first.
  bool top_down = false;
  int bits = 0;  // to a pixel: 1, 2, 4, 8, 16, 24 or 32
  // Rows of 4 or 8 bits come as runs of one colour.
  bool runs = false;
  // The offset where the rows begin.
  std::size_t rows = 0;
  // 2 to the power of `bits` colours, where there are up to 8.
  std::vector<Pixel> palette;
  // The bits of red, green and blue, where there are 16 or 32, and of what may be 0: alpha.
  std::array<Pixel, 4> masks{};
};

// Fails with kBadPicture, also for a size beyond all that makes sense. Whether the rows are there is
// not looked at.
BmpHeader ReadBmpHeader(PictureFile& file);

}  // namespace quorvale
