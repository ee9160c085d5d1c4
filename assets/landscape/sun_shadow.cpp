#include "landscape/sun_shadow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "picture/colour.h"
#include "picture/parallel.h"

namespace quorvale::samples {

SunShadow::SunShadow(const Area& area, float slope, const HeightField& ground)
    : area_(area), ceilings_(static_cast<std::size_t>(kColumns) * kRows) {
  const float cell_width = (area.right - area.left) / kColumns, cell_depth = (area.far - area.near) / kRows;
  const float drop = std::abs(slope) * cell_width;
  InParallel(kRows, [&](int begin, int end) {
    for (int row = begin; row < end; ++row) {
      const float z = area.near + (static_cast<float>(row) + 0.5F) * cell_depth;
      // Walking away from the sun, the shadow of all that was passed sinks by its slope.
      float ceiling = -1;
      for (int i = 0; i < kColumns; ++i) {
        const int column = slope > 0 ? i : kColumns - 1 - i;
        Ceiling(column, row) = ceiling;
        ceiling = std::max(ceiling, ground(area.left + (static_cast<float>(column) + 0.5F) * cell_width, z)) - drop;
      }
    }
  });
}

float& SunShadow::Ceiling(int column, int row) {
  return ceilings_[static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column)];
}

float SunShadow::Lit(float x, float height, float z) const {
  const float across = (x - area_.left) / (area_.right - area_.left) * kColumns - 0.5F;
  const float along = (z - area_.near) / (area_.far - area_.near) * kRows - 0.5F;
  const int column = std::clamp(static_cast<int>(across), 0, kColumns - 2);
  const int row = std::clamp(static_cast<int>(along), 0, kRows - 2);
  const float u = Clamp01(across - static_cast<float>(column)), v = Clamp01(along - static_cast<float>(row));
  const auto at = [&](int c, int r) {
    return ceilings_[static_cast<std::size_t>(r) * kColumns + static_cast<std::size_t>(c)];
  };
  const float ceiling =
      Mix(Mix(at(column, row), at(column + 1, row), u), Mix(at(column, row + 1), at(column + 1, row + 1), u), v);
  constexpr float kPenumbra = 0.03F;  // kilometres
  return Smooth(-kPenumbra, kPenumbra, height - ceiling);
}

}  // namespace quorvale::samples
