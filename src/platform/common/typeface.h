#pragma once

#include <algorithm>

#include "toolkit/platform.h"

namespace quorvale {

// How far a smoothed glyph may reach beyond its box, in pixels.
inline constexpr int kGlyphOverhang = 2;

// The forms name old bitmap fonts, which have few sizes and letters or don't exist. A scalable typeface with or without
// serifs replaces each.
inline bool IsSerif(const Font& font) { return font.name.find("Serif") != std::string::npos; }

// The font's height in device pixels, at least 1, from toolkit pixels per inch and device pixels per toolkit pixel.
inline double FontPixels(const Font& font, double pixels_per_inch, float scale) {
  constexpr double kPointsPerInch = 72;
  return std::max(1.0,
                  static_cast<double>(font.points) * pixels_per_inch / kPointsPerInch * static_cast<double>(scale));
}

}  // namespace quorvale
