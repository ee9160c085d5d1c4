#pragma once

#include <span>

#include "picture/canvas.h"
#include "picture/colour.h"

namespace quorvale::samples {

struct Point {
  float x, y;
};

// A straight stroke of the brush that may taper, with smooth edges. A stroke thinner than a pixel is fainter
// instead. Widths are in pixels.
void Stroke(Canvas& canvas, Point from, Point to, float from_width, float to_width, Colour colour);

// Fills a convex shape, smooth at its edges. The corners go round clockwise, as seen on the screen.
void FillShape(Canvas& canvas, std::span<const Point> corners, Colour colour);

}  // namespace quorvale::samples
