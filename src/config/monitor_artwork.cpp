#include "config/monitor_artwork.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

namespace quorvale {
namespace {

constexpr Pixel kOpaque = 0xFF000000;
constexpr Pixel kClear = 0;
constexpr Pixel kInk = kOpaque;
constexpr Pixel kPaper = kOpaque | 0xFFFFFF;
constexpr Pixel kSilver = kOpaque | 0xC0C0C0;
constexpr Pixel kGrey = kOpaque | 0x808080;
constexpr Pixel kNavy = kOpaque | 0x000080;
constexpr Pixel kTeal = kOpaque | 0x008080;
constexpr Pixel kGreen = kOpaque | 0x008000;
constexpr Pixel kLime = kOpaque | 0x00FF00;
constexpr Pixel kYellow = kOpaque | 0xFFFF00;

// A box with round corners, in the toolkit's pixels.
struct Shape {
  float left;
  float top;
  float right;
  float bottom;
  float radius;
  Pixel colour;
};

// Painted in this order. The frame of the play lists begins 6 pixels above the bitmap's lower edge, so the
// foot ends above that.
constexpr Shape kMonitor[] = {
    {74, 148, 115, 158, 0, kGrey},      // the neck
    {84, 148, 105, 158, 0, kSilver},    //
    {46, 155, 143, 164, 4, kGrey},      // the foot
    {47, 155, 142, 162, 3, kPaper},     //
    {48, 157, 142, 162, 3, kSilver},    //
    {2, 0, 187, 151, 8, kGrey},         // the case: shade, light, face
    {2, 0, 185, 149, 8, kPaper},        //
    {4, 2, 185, 149, 6, kSilver},       //
    {13, 13, 176, 137, 4, kPaper},      // the rim of the screen, lit from the other side
    {13, 13, 175, 136, 4, kGrey},       //
    {17, 17, 175, 136, 2, kSilver},     //
    {17, 17, 172, 133, 0, kGrey},       //
    {18, 18, 171, 132, 0, kInk},        // the screen
    {24, 141, 44, 145, 1, kGrey},       // the maker's plate
    {25, 142, 44, 145, 1, kPaper},      //
    {112, 141, 118, 145, 1, kGrey},     // knobs
    {124, 141, 130, 145, 1, kGrey},     //
    {136, 141, 142, 145, 1, kGrey},     //
    {154, 140, 168, 146, 2, kGrey},     // the lamp
    {155, 141, 167, 145, 1, kGreen},    //
    {157, 142, 162, 144, 0.5F, kLime},  //
};

constexpr float kIconSize = 32;

constexpr Shape kIcon[] = {
    {11, 24, 21, 28, 0, kGrey},     // the foot
    {7, 27, 25, 30, 1, kGrey},      //
    {1, 2, 31, 25, 3, kGrey},       // the case
    {1, 2, 30, 24, 3, kPaper},      //
    {2, 3, 30, 24, 2, kSilver},     //
    {4, 5, 28, 21, 1, kInk},        // the screen: half an old picture, half a new one
    {5, 6, 16, 20, 0, kTeal},       //
    {7, 8, 11, 12, 2, kYellow},     //
    {5, 15, 16, 20, 0, kGreen},     //
    {17, 6, 27, 20, 0, kNavy},      //
    {21, 9, 25, 13, 2, kPaper},     //
    {16, 6, 17, 20, 0, kPaper},     //
    {25, 22, 28, 23, 0.5F, kLime},  //
};

bool Holds(const Shape& shape, float x, float y) {
  if (x < shape.left || x >= shape.right || y < shape.top || y >= shape.bottom) return false;
  const float dx = std::max({shape.left + shape.radius - x, x - (shape.right - shape.radius), 0.0F});
  const float dy = std::max({shape.top + shape.radius - y, y - (shape.bottom - shape.radius), 0.0F});
  return dx * dx + dy * dy <= shape.radius * shape.radius;
}

// Not anti-aliased, to use only the given colours. `one_colour` replaces them all.
Bitmap Paint(float width, float height, float scale, Pixel background, std::span<const Shape> shapes,
             std::optional<Pixel> one_colour = std::nullopt) {
  Bitmap bitmap(static_cast<int>(std::lround(width * scale)), static_cast<int>(std::lround(height * scale)),
                background);
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) {
      const float across = (static_cast<float>(x) + 0.5F) / scale;
      const float down = (static_cast<float>(y) + 0.5F) / scale;
      const auto top = std::find_if(shapes.rbegin(), shapes.rend(),
                                    [across, down](const Shape& shape) { return Holds(shape, across, down); });
      if (top != shapes.rend()) bitmap.Set(x, y, one_colour.value_or(top->colour));
    }
  }
  return bitmap;
}

}  // namespace

Bitmap MonitorBitmap(float scale) { return Paint(kMonitorWidth, kMonitorHeight, scale, kInk, kMonitor); }

Bitmap MonitorMask(float scale) { return Paint(kMonitorWidth, kMonitorHeight, scale, kPaper, kMonitor, kInk); }

Bitmap MonitorOnBackground(float scale) {
  const Bitmap mask = MonitorMask(scale);
  Bitmap work(mask.Width(), mask.Height(), kClear);
  BitBlt(work, mask, RasterOperation::kSrcAnd);
  BitBlt(work, MonitorBitmap(scale), RasterOperation::kSrcInvert);
  // Raster operations know colours only.
  for (int y = 0; y < work.Height(); ++y) {
    for (int x = 0; x < work.Width(); ++x) {
      if (mask.At(x, y) == kInk) work.Set(x, y, work.At(x, y) | kOpaque);
    }
  }
  return work;
}

Bitmap ConfigIcon(float scale) { return Paint(kIconSize, kIconSize, scale, kClear, kIcon); }

}  // namespace quorvale
