#pragma once

#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// The number, 1 to 8, that a JPEG file's camera data give for its orientation; 1 if they give none or
// can't be made out.
int ExifOrientation(PictureFile& file);

}  // namespace quorvale
