#pragma once

#include <cstdint>

#include "picture/canvas.h"

namespace quorvale::samples {

struct ConiferLook {
  Colour shade;           // the side away from the light
  Colour lit;             // the twigs towards the light
  Colour snow;            // what lies on the branches,
  float snow_share = 0;   // and on how many of them: 0 to 1
  float light_side = -1;  // -1 when the light comes from the left, 1 from the right
};

// Draws a fir whose foot is at `foot` and which is `height` pixels tall. The same `seed`, the same tree.
void DrawConifer(Canvas& canvas, Point foot, float height, const ConiferLook& look, std::uint32_t seed);

struct HutLook {
  Colour wood, snow, window;
};

// Draws a small wooden hut with snow on its roof and light in its windows. `foot` is the lower left corner of its
// front, `size` the width of that in pixels.
void DrawHut(Canvas& canvas, Point foot, float size, const HutLook& look);

}  // namespace quorvale::samples
