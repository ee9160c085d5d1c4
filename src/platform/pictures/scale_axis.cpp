#include "platform/pictures/scale_axis.h"

#include <algorithm>
#include <cmath>

namespace quorvale {
namespace {

// A part of a pixel too small to show; rounding makes such parts out of nothing.
constexpr double kNothing = 1e-4;

// The stretch of the source that a pixel is the mean of: what it covers or, in a picture that grows, one
// source pixel's length around its centre, which makes a line from each source pixel to the next.
struct Stretch {
  Stretch(int pixel, double ratio, int size) {
    const double half = std::max(ratio, 1.0) / 2;
    const double centre = (pixel + 0.5) * ratio;
    from = std::clamp(centre - half, 0.0, size - 2 * kNothing);
    to = std::clamp(centre + half, from + 2 * kNothing, static_cast<double>(size));
    first = static_cast<int>(from + kNothing);
    end = std::max(first + 1, static_cast<int>(std::ceil(to - kNothing)));
  }

  double Share(int pixel) const {
    const double covered = std::min(pixel + 1.0, to) - std::max<double>(pixel, from);
    return pixel < end ? std::max(0.0, covered) / (to - from) : 0;
  }

  double from = 0;
  double to = 0;
  int first = 0;
  int end = 0;
};

}  // namespace

ScaleAxis::ScaleAxis(int total, int first, int count, double length, int size) : begin_(size) {
  const double ratio = length / total;
  first_.reserve(static_cast<std::size_t>(count));
  int most = 1;
  for (int i = 0; i < count; ++i) {
    const Stretch stretch(first + i, ratio, size);
    first_.push_back(stretch.first);
    begin_ = std::min(begin_, stretch.first);
    end_ = std::max(end_, stretch.end);
    most = std::max(most, stretch.end - stretch.first);
  }
  stride_ = static_cast<std::size_t>(most);
  weights_.reserve(stride_ * first_.size());
  for (int i = 0; i < count; ++i) {
    const Stretch stretch(first + i, ratio, size);
    for (int k = 0; k < most; ++k) weights_.push_back(static_cast<float>(stretch.Share(stretch.first + k)));
  }
  is_copy_ = length == total;
}

}  // namespace quorvale
