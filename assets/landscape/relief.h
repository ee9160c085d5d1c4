#pragma once

#include <functional>
#include <vector>

#include "picture/canvas.h"
#include "picture/view.h"

namespace quorvale::samples {

// A height above the ground plane at (x, z).
using HeightField = std::function<float(float x, float z)>;

// Which parts of a ground a low sun reaches. It shines along the x axis, from the left if `slope`, the tangent of its
// elevation, is positive, otherwise from the right.
class SunShadow {
 public:
  struct Area {
    float left, right, near, far;
  };

  SunShadow(const Area& area, float slope, const HeightField& ground);

  // 0 in full shadow to 1 in full sun, for a point at `height` above (x, z).
  float Lit(float x, float height, float z) const;

 private:
  static constexpr int kColumns = 1200, kRows = 900;
  float& Ceiling(int column, int row);

  Area area_;
  std::vector<float> ceilings_;  // per cell, the height up to which shadow stands
};

// A spot of ground in view.
struct GroundSpot {
  Vector place;   // place.z is also its distance
  Vector normal;  // of length 1
};
using GroundShader = std::function<Colour(const GroundSpot&)>;

struct ReliefRange {
  float near, far;  // kilometres
  int slices;       // the number of distances between them, closer together in front
};

// Draws the ground over what the canvas shows above `bottom_row`, hidden parts left out. Silhouettes are smooth.
void DrawRelief(Canvas& canvas, const View& view, const ReliefRange& range, float bottom_row, const HeightField& ground,
                const GroundShader& shade);

}  // namespace quorvale::samples
