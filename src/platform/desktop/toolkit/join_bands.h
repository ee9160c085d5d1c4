#pragma once

#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// Trades pixels for rectangles: presenting a rectangle costs as much as presenting some hundred pixels, so
// thin slivers are joined to larger rectangles where that is cheaper in sum. What it adds has not changed
// and is put on the screen as it is there already.
//
// `rects` come as `DirtyRegion::Take` gives them, and the result is of the same form.
std::vector<PixelRect> JoinBands(const std::vector<PixelRect>& rects);

}  // namespace quorvale
