#pragma once

#include "picture/brush.h"
#include "picture/canvas.h"
#include "picture/colour.h"

namespace quorvale::samples {

struct HutLook {
  Colour wood, snow, window;
};

// Draws a small wooden hut with snow on its roof and light in its windows. `foot` is the lower left corner of its
// front, `size` the width of that in pixels.
void DrawHut(Canvas& canvas, Point foot, float size, const HutLook& look);

}  // namespace quorvale::samples
