#pragma once

#include <string>

#include "toolkit/pixel_view.h"
#include "toolkit/units.h"

namespace quorvale {

// The platform uses the nearest font that it has.
struct Font {
  std::string name;
  float points = 8;
};

// Draws text on pixels. The platform knows the device's resolution.
class TextPainter {
 public:
  virtual ~TextPainter() = default;

  // The size of one line of text, in device pixels, on a surface with `scale` device pixels to the
  // toolkit's pixel.
  virtual PixelRect Measure(const std::string& text, const Font& font, float scale) = 0;

  // Draws one line with its top left corner at that pixel of `target`, cut off at its edges. Gives the
  // pixels that may have changed.
  virtual PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                         Colour colour, float scale) = 0;
};

}  // namespace quorvale
