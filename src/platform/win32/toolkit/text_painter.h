#pragma once

#include "toolkit/platform.h"

namespace quorvale {

// Draws text by GDI, in scalable fonts that are close to the named ones.
class GdiTextPainter : public TextPainter {
 public:
  // `pixels_per_inch` of the toolkit's pixels.
  explicit GdiTextPainter(int pixels_per_inch) : pixels_per_inch_(pixels_per_inch) {}

  PixelRect Measure(const std::string& text, const Font& font, float scale) override;
  PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font, Colour colour,
                 float scale) override;

 private:
  // In device pixels.
  int FontHeight(const Font& font, float scale) const;

  int pixels_per_inch_;
};

}  // namespace quorvale
