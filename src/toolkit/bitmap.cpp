#include "toolkit/bitmap.h"

#include <algorithm>

namespace quorvale {
namespace {

constexpr Pixel kColourBits = 0xFFFFFF;

}  // namespace

Bitmap::Bitmap(int width, int height, Pixel fill)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), fill) {}

void BitBlt(Bitmap& target, const Bitmap& source, RasterOperation operation) {
  const int width = std::min(target.Width(), source.Width());
  const int height = std::min(target.Height(), source.Height());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Pixel old = target.At(x, y);
      const Pixel other = source.At(x, y) & kColourBits;
      target.Set(x, y, operation == RasterOperation::kSrcAnd ? old & (other | ~kColourBits) : old ^ other);
    }
  }
}

}  // namespace quorvale
