#pragma once

#include <cstddef>
#include <cstdint>

#include "toolkit/units.h"

namespace quorvale {

// 32 bits a pixel, 0xFFRRGGBB.
using Pixel = std::uint32_t;

constexpr Pixel ToPixel(Colour colour) {
  return 0xFF000000U | (colour & 0x0000FFU) << 16U | (colour & 0x00FF00U) | (colour & 0xFF0000U) >> 16U;
}

// A view of pixels owned elsewhere: `height` rows of `width`. `stride` is the distance between rows in pixels.
struct PixelView {
  Pixel* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;

  Pixel* Row(int y) const { return pixels + y * stride; }
  PixelRect Bounds() const { return {0, 0, width, height}; }
};

}  // namespace quorvale
