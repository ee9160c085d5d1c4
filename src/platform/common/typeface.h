#pragma once

#include <algorithm>

#include "toolkit/platform.h"

namespace quorvale {

// What a glyph may reach beyond its own box, in pixels, smoothing included.
inline constexpr int kGlyphOverhang = 2;

// The fonts that the forms name are bitmap fonts with few sizes and few letters, or are not there at all. A scalable
// face of their kind stands in for each.
inline bool IsSerif(const Font& font) { return font.name.find("Serif") != std::string::npos; }

// The height of a line's letters in device pixels, 1 or more. `pixels_per_inch` are the toolkit's, `scale` device
// pixels to the toolkit's pixel.
inline double FontPixels(const Font& font, double pixels_per_inch, float scale) {
  constexpr double kPointsPerInch = 72;
  return std::max(1.0,
                  static_cast<double>(font.points) * pixels_per_inch / kPointsPerInch * static_cast<double>(scale));
}

}  // namespace quorvale
