#pragma once

#include <cstdint>

namespace quorvale {

// Forms, controls and drawings are measured in twips, as floats. A pixel always has 15, whatever the screen's
// resolution.
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

// In pixels.
struct PixelSize {
  int width = 0;
  int height = 0;
  bool operator==(const PixelSize&) const = default;
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

// Converts to device pixels, `scale` per toolkit pixel. Edges are rounded to the nearest pixel and clamped to what a
// surface could show.
PixelRect ToPixels(const TwipRect& rect, float scale);

// Converts a length to device pixels without rounding.
double ToPixels(float twips, float scale);

}  // namespace quorvale
