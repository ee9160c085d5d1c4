#pragma once

#include <cstdint>

namespace quorvale {

// Positions and sizes of forms, controls and drawing are in twips, 1440 to the inch, and single
// precision. `Screen` has 15 of them to the pixel, always.
inline constexpr float kTwipsPerPixel = 15.0F;
inline constexpr float kTwipsPerPoint = 20.0F;

// 0x00BBGGRR.
using Colour = std::uint32_t;

inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kWhite = 0xFFFFFF;

// In twips.
struct TwipSize {
  float width = 0;
  float height = 0;
};

struct TwipRect {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  bool operator==(const TwipRect&) const = default;
};

// In pixels; empty when a side is 0 or less.
struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
  bool IsEmpty() const { return width <= 0 || height <= 0; }
  bool operator==(const PixelRect&) const = default;
};

PixelRect Intersect(const PixelRect& a, const PixelRect& b);

// The pixels of `rect` at `scale` device pixels to the toolkit's pixel: each edge goes to the nearest
// one. Coordinates beyond what a surface could ever show are clamped.
PixelRect ToPixels(const TwipRect& rect, float scale);

// A length in twips in device pixels, not rounded.
double ToPixels(float twips, float scale);

}  // namespace quorvale
