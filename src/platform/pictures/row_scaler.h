#pragma once

#include <functional>
#include <span>
#include <vector>

#include "platform/pictures/row_source.h"

namespace quorvale {

// The weights by which the pixels along one side of a scaled picture are mixed from its source. A picture that shrinks
// takes the mean of what each pixel covers, one that grows interpolates between the two nearest.
class ScaleAxis {
 public:
  // For the pixels from `first` on, `count` (at least 1) of them, of a side scaled to `total` pixels.
  // The source has `size` pixels along that side, and they cover a length of `length`, which may end
  // within the last one.
  ScaleAxis(int total, int first, int count, double length, int size);

  // The source pixels that are needed, from `Begin` up to but not including `End`.
  int Begin() const { return begin_; }
  int End() const { return end_; }
  bool IsCopy() const { return is_copy_; }

  int Count() const { return static_cast<int>(first_.size()); }
  // For the `i`th pixel: the first source pixel of the mix.
  int First(int i) const { return first_[static_cast<std::size_t>(i)]; }
  // The weights from there on; they add up to 1. All pixels have the same number of them, and the last
  // ones, which may lie beyond `End`, can be 0.
  std::span<const float> Weights(int i) const {
    return std::span(weights_).subspan(static_cast<std::size_t>(i) * stride_, stride_);
  }

 private:
  bool is_copy_ = false;
  std::size_t stride_ = 1;
  int begin_ = 0;
  int end_ = 0;
  std::vector<int> first_;
  std::vector<float> weights_;
};

// Reads what the axes need from `source`, which has started there, and calls `place` with each scaled row in turn.
// Ends early if the source does.
void ScaleRows(RowSource& source, const ScaleAxis& across, const ScaleAxis& down,
               const std::function<void(const Pixel* row, int y)>& place);

}  // namespace quorvale
