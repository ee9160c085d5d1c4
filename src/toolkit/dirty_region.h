#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// The pixels of a surface that have changed since they were last presented, as spans of rows.
class DirtyRegion {
 public:
  // Clears the region and sets the size of the surface, in device pixels.
  void Reset(int width, int height);

  // Adds the pixels [left, right) of row `y`, which must be inside the surface.
  void Add(int y, int left, int right);
  void Add(const PixelRect& rect);

  bool IsEmpty() const { return first_row_ > last_row_; }

  // Returns the region as rectangles and empties it. The rectangles cover every changed pixel; at most a quarter of
  // their pixels, in each band, are unchanged. They form bands from top to bottom, and go from left to right in a band.
  // All rectangles of a band have the same top and height. Bands do not overlap, rectangles do not touch. The result is
  // valid until the next `Take`.
  const std::vector<PixelRect>& Take();

  // Exactly the changed pixels, one rectangle per span; spans of a row do not touch. For tests.
  std::vector<PixelRect> Spans() const;

 private:
  struct Span {
    int left = 0;
    int right = 0;

    Span Union(const Span& with) const { return {std::min(left, with.left), std::max(right, with.right)}; }
  };

  // Rows that become one band of rectangles, and their number of changed pixels.
  struct Band {
    std::vector<Span> spans;
    int top = 0;
    int height = 0;
    std::int64_t changed = 0;
  };

  static std::int64_t JoinGaps(std::vector<Span>& row);
  bool JoinRow(const std::vector<Span>& row, std::int64_t changed);
  void GiveBand();

  std::vector<std::vector<Span>> rows_;
  int first_row_ = std::numeric_limits<int>::max();
  int last_row_ = -1;

  // Members, like the rows, to reuse their memory: a step of an effect must not allocate.
  Band band_;
  std::vector<PixelRect> taken_;
};

}  // namespace quorvale
