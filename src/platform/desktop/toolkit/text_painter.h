#pragma once

#include "toolkit/platform.h"

namespace quorvale {

// Draws text by Qt in the typefaces of the machine. Sizes need not be whole pixels.
class QtTextPainter : public TextPainter {
 public:
  // Toolkit pixels per inch, as the desktop sets them for text.
  explicit QtTextPainter(double pixels_per_inch) : pixels_per_inch_(pixels_per_inch) {}

  PixelRect Measure(const std::string& text, const Font& font, float scale) override;
  PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font, Colour colour,
                 float scale) override;

 private:
  double pixels_per_inch_;
};

}  // namespace quorvale
