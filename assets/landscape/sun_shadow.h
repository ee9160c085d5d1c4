#pragma once

#include <functional>
#include <vector>

namespace quorvale::samples {

// A height above the ground plane at (x, z).
using HeightField = std::function<float(float x, float z)>;

// Which parts of a ground a low sun reaches. It shines along the x axis, from the left for a positive `slope`
// (the tangent of its elevation) and from the right for a negative one.
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

}  // namespace quorvale::samples
