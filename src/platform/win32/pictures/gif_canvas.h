#pragma once

#include <cstdint>
#include <span>

#include "toolkit/units.h"

namespace quorvale {

// The size of a GIF file's canvas and the place of its first picture there, which may cover less.
struct GifCanvas {
  int width = 0;
  int height = 0;
  PixelRect first;
};

// Empty when the file is none, or damaged.
GifCanvas ReadGifCanvas(std::span<const std::uint8_t> bytes);

}  // namespace quorvale
