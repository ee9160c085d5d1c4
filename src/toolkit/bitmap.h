#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "toolkit/pixel_view.h"

namespace quorvale {

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
