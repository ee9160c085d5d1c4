#pragma once

#include <array>
#include <cstddef>

#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/orientation.h"
#include "toolkit/pixel_view.h"
#include "toolkit/units.h"

namespace quorvale {

// What a GIF file says up to its first frame.
struct GifHeader {
  bool IsOpaque() const { return !has_transparent && frame == PixelRect{0, 0, size.width, size.height}; }

  PixelSize size;
  // Around it, and where it has the transparent colour, nothing is drawn.
  PixelRect frame;
  bool interlaced = false;
  bool has_transparent = false;
  std::array<Pixel, 256> palette{};
  // The width of the pixels' codes before they grow, 1 to 11 bits.
  int code_bits = 0;
  // The offset where the codes begin.
  std::size_t codes = 0;
};

// Fails with kBadPicture, also if the file is too small to hold so many pixels.
GifHeader ReadGifHeader(PictureFile& file);

}  // namespace quorvale
