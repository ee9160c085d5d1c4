#pragma once

#include "toolkit/text_painter.h"

namespace quorvale {

// Text of fixed metrics: a character is half an em wide and a line 1.2 em high, rounded to whole pixels,
// at 96 dots to the inch. A character but the blank is a solid block, one pixel narrower and lower.
class BlockTextPainter : public TextPainter {
 public:
  PixelRect Measure(const std::string& text, const Font& font, float scale) override;
  PixelRect Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font, Colour colour,
                 float scale) override;
};

}  // namespace quorvale
