#pragma once

#include "toolkit/text_painter.h"

namespace quorvale {

// Text by Qt, in the faces that the machine has, at sizes that need not be whole pixels.
class QtTextPainter : public TextPainter {
 public:
  // `pixels_per_inch` of the toolkit's pixels, as the desktop wants text to be.
  explicit QtTextPainter(double pixels_per_inch) : pixels_per_inch_(pixels_per_inch) {}

  PixelRect Measure(const std::string& text, const Font& font, float scale) override;
  PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font, Colour colour,
                 float scale) override;

 private:
  double pixels_per_inch_;
};

}  // namespace quorvale
