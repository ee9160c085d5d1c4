#pragma once

#include "picture/canvas.h"
#include "picture/view.h"

namespace quorvale::samples {

// The northern lights alone, on black, for a sky of `width` by `height` pixels above the view's horizon. The
// canvas is smaller than that by these factors: it is all glow.
inline constexpr int kAuroraShrinkX = 2, kAuroraShrinkY = 4;
Canvas RenderAurora(const View& view, int width, int height);

}  // namespace quorvale::samples
