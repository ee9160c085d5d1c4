#pragma once

#include "picture/vector.h"

namespace quorvale::samples {

// A camera that looks straight at the horizon. Lengths in the landscape are kilometres.
struct View {
  float centre_column;
  float horizon_row;
  float focal;       // in pixels: the image size of something as large as it is far
  float eye_height;  // above the water, which is at height 0

  Vector Direction(float column, float row) const {
    return Unit({(column - centre_column) / focal, (horizon_row - row) / focal, 1});
  }
  float Row(float height, float distance) const { return horizon_row - (height - eye_height) / distance * focal; }
  float Column(float x, float distance) const { return centre_column + x / distance * focal; }
};

}  // namespace quorvale::samples
