#pragma once

#include <QImage>

#include "toolkit/bitmap.h"

namespace quorvale {

// The artwork at that many device pixels to the toolkit's pixel.
QImage ToImage(const Artwork& artwork, float scale);

}  // namespace quorvale
