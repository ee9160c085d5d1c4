#include "landscape/relief.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "picture/canvas.h"
#include "picture/view.h"

namespace quorvale::samples {
namespace {

// The ground's heights on a fan of rays, one for each column of the picture: as fine as the eye sees them at
// every distance.
class Fan {
 public:
  Fan(const View& view, const ReliefRange& range, int columns, const HeightField& ground)
      : view_(view),
        range_(range),
        columns_(columns),
        ratio_(std::pow(range.far / range.near, 1 / static_cast<float>(range.slices - 1))),
        heights_(static_cast<std::size_t>(range.slices) * static_cast<std::size_t>(columns)) {
    InParallel(columns, [&](int begin, int end) {
      for (int column = begin; column < end; ++column) {
        float z = range.near;
        for (int slice = 0; slice < range.slices; ++slice, z *= ratio_) Height(column, slice) = ground(X(column, z), z);
      }
    });
  }

  int Slices() const { return range_.slices; }
  float Ratio() const { return ratio_; }
  float& Height(int column, int slice) { return heights_[Index(column, slice)]; }
  float Height(int column, int slice) const { return heights_[Index(column, slice)]; }

  GroundSpot Spot(int column, int slice, float z) const {
    const int left = std::max(column - 1, 0), right = std::min(column + 1, columns_ - 1);
    const int front = std::max(slice - 1, 0), back = std::min(slice + 1, range_.slices - 1);
    const float slope_x =
        (Height(right, slice) - Height(left, slice)) / (static_cast<float>(right - left) * z / view_.focal);
    const float depth = z * (ratio_ - 1) * static_cast<float>(back - front);
    // A ray of the fan runs sideways too, which the slope along it must not count as depth.
    const float sideways = X(column, 1);
    const float slope_z = (Height(column, back) - Height(column, front)) / depth - slope_x * sideways;
    return {{X(column, z), Height(column, slice), z}, Unit({-slope_x, 1, -slope_z})};
  }

 private:
  float X(int column, float z) const {
    return (static_cast<float>(column) + 0.5F - view_.centre_column) / view_.focal * z;
  }
  std::size_t Index(int column, int slice) const {
    return static_cast<std::size_t>(column) * static_cast<std::size_t>(range_.slices) + static_cast<std::size_t>(slice);
  }

  View view_;
  ReliefRange range_;
  int columns_;
  float ratio_;
  std::vector<float> heights_;
};

GroundSpot Between(const GroundSpot& a, const GroundSpot& b, float t) {
  return {a.place * (1 - t) + b.place * t, Unit(a.normal * (1 - t) + b.normal * t)};
}

// Paints one column of the picture upwards. Spots arrive from the front to the back, and what is between two of
// them shows where it rises above all before it.
class ColumnPainter {
 public:
  ColumnPainter(Canvas& canvas, int column, float bottom) : canvas_(canvas), column_(column), reached_(bottom) {}

  bool Shows(float row) const { return row < reached_ && reached_ > 0; }

  // The ground rises from `front`, which lies at `front_row`, to `back` at `back_row`, which shows.
  void Rise(const GroundSpot& front, float front_row, const GroundSpot& back, float back_row,
            const GroundShader& shade) {
    const float end = std::max(back_row, 0.0F);
    const int last = std::min(static_cast<int>(std::ceil(reached_)), canvas_.Height()) - 1;
    for (int y = last; y >= static_cast<int>(end); --y) {
      const float lower = std::min(reached_, static_cast<float>(y + 1)), upper = std::max(end, static_cast<float>(y));
      if (upper >= lower) continue;
      if (y != open_row_) {
        open_row_ = y;
        behind_ = canvas_.At(column_, y);
      }
      const float t = Clamp01((front_row - (lower + upper) / 2) / (front_row - back_row));
      canvas_.At(column_, y) += (lower - upper) * (shade(Between(front, back, t)) - behind_);
    }
    reached_ = end;
  }

 private:
  Canvas& canvas_;
  int column_;
  float reached_;
  int open_row_ = -1;  // the pixel that may be covered in part so far,
  Colour behind_;      // and what it showed before
};

}  // namespace

SunShadow::SunShadow(const Area& area, float slope, const HeightField& ground)
    : area_(area), ceilings_(static_cast<std::size_t>(kColumns) * kRows) {
  const float cell_width = (area.right - area.left) / kColumns, cell_depth = (area.far - area.near) / kRows;
  const float drop = std::abs(slope) * cell_width;
  InParallel(kRows, [&](int begin, int end) {
    for (int row = begin; row < end; ++row) {
      const float z = area.near + (static_cast<float>(row) + 0.5F) * cell_depth;
      // Away from the sun the shadow of what stands before sinks by the slope.
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

void DrawRelief(Canvas& canvas, const View& view, const ReliefRange& range, float bottom_row, const HeightField& ground,
                const GroundShader& shade) {
  const Fan fan(view, range, canvas.Width(), ground);
  InParallel(canvas.Width(), [&](int begin, int end) {
    for (int column = begin; column < end; ++column) {
      ColumnPainter painter(canvas, column, bottom_row);
      float z = range.near, front_row = bottom_row;
      for (int slice = 0; slice < fan.Slices(); ++slice, z *= fan.Ratio()) {
        const float row = view.Row(fan.Height(column, slice), z);
        if (painter.Shows(row)) {
          const GroundSpot spot = fan.Spot(column, slice, z);
          const GroundSpot front = slice > 0 ? fan.Spot(column, slice - 1, z / fan.Ratio()) : spot;
          painter.Rise(front, front_row, spot, row, shade);
        }
        front_row = row;
      }
    }
  });
}

}  // namespace quorvale::samples
