#pragma once

#include <functional>

#include "landscape/sun_shadow.h"
#include "landscape/view.h"
#include "picture/canvas.h"
#include "picture/colour.h"
#include "picture/vector.h"

namespace quorvale::samples {

// A spot of ground in view.
struct GroundSpot {
  Vector place;   // place.z is also its distance
  Vector normal;  // of length 1
};
using GroundShader = std::function<Colour(const GroundSpot&)>;

struct ReliefRange {
  float near, far;  // kilometres
  int slices;       // how many distances between them are looked at, closer together in front
};

// Draws the ground over what the canvas shows above `bottom_row`, hidden parts left out. Silhouettes are smooth.
void DrawRelief(Canvas& canvas, const View& view, const ReliefRange& range, float bottom_row, const HeightField& ground,
                const GroundShader& shade);

}  // namespace quorvale::samples
