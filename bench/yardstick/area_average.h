#pragma once

#include <functional>

#include "toolkit/pixel_view.h"

namespace quorvale {

// Shrinks a picture of that size, no smaller than `target` on either side, to `target`: each pixel becomes the mean of
// those it stands for. `next_row` gives the rows from the top down.
void AreaAverage(int width, int height, const std::function<const Pixel*()>& next_row, const PixelView& target);

}  // namespace quorvale
