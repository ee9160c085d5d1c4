#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// 32 bits a pixel, 0xFFRRGGBB.
using Pixel = std::uint32_t;

constexpr Pixel ToPixel(Colour colour) {
  return 0xFF000000U | (colour & 0x0000FFU) << 16U | (colour & 0x00FF00U) | (colour & 0xFF0000U) >> 16U;
}

// A view of pixels owned elsewhere: `height` rows of `width`. `stride` is the distance between rows in pixels.
template <typename AnyPixel>
struct BasicPixelView {
  AnyPixel* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;

  AnyPixel* Row(int y) const { return pixels + y * stride; }
  PixelRect Bounds() const { return {0, 0, width, height}; }
  operator BasicPixelView<const Pixel>() const requires(!std::is_const_v<AnyPixel>) {
    return {pixels, width, height, stride};
  }
};
using PixelView = BasicPixelView<Pixel>;
using ConstPixelView = BasicPixelView<const Pixel>;

// An image that owns its pixels. Used for artwork.
class Bitmap {
 public:
  Bitmap() = default;
  Bitmap(int width, int height, Pixel fill);

  int Width() const { return width_; }
  int Height() const { return height_; }
  PixelView View() { return {pixels_.data(), width_, height_, width_}; }
  Pixel At(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }
  void Set(int x, int y, Pixel pixel) { pixels_[static_cast<std::size_t>(y) * width_ + x] = pixel; }

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<Pixel> pixels_;
};

// A drawing that can be rendered at any scale (device pixels per toolkit pixel).
using Artwork = std::function<Bitmap(float scale)>;

// Raster operations of `BitBlt`, on red, green and blue.
enum class RasterOperation { kSrcAnd, kSrcInvert };

// Combines the pixels of `source` with those of `target` at the same places.
void BitBlt(Bitmap& target, const Bitmap& source, RasterOperation operation);

}  // namespace quorvale
