#pragma once

#include "picture/canvas.h"

namespace quorvale::samples {

// Spreads what is brighter than `threshold` around it, as a lens does, over about `radius` pixels.
void AddGlow(Canvas& canvas, float threshold, float strength, int radius);

}  // namespace quorvale::samples
