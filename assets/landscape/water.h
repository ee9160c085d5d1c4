#pragma once

#include "picture/canvas.h"
#include "picture/view.h"

namespace quorvale::samples {

struct WaterLook {
  Colour depth;                  // what shines up where the water does not mirror
  float ripple_length = 0.001F;  // kilometres from crest to crest
  float ripple_slope = 0;        // how steep they are: 0 is a mirror
};

// Fills the canvas from `shore_row` down with water that mirrors what is above it.
void DrawWater(Canvas& canvas, const View& view, int shore_row, const WaterLook& look);

}  // namespace quorvale::samples
