#pragma once

#include "toolkit/bitmap.h"
#include "toolkit/units.h"

namespace quorvale {

// Fills `area` around a picture with a copy of it that is enlarged to cover `area`, cut evenly, and blurred. The
// picture already stands on the target at `picture`, and stays. Both rectangles lie inside the target and are not
// empty.
void PaintBackdrop(const PixelView& target, const PixelRect& picture, const PixelRect& area);

}  // namespace quorvale
