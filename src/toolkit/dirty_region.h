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
  // Forgets everything and takes the size of the surface, in device pixels.
  void Reset(int width, int height);

  // The pixels from `left` up to but not including `right` of one row. Inside the surface.
  void Add(int y, int left, int right);
  void Add(const PixelRect& rect);

  bool IsEmpty() const { return first_row_ > last_row_; }

  // The region as rectangles; the region is then empty. They come in bands from top to bottom, and in a
  // band from left to right. All rectangles of a band have its top and height; bands do not overlap and
  // rectangles of a band do not touch. Every changed pixel is in one of them, and of the pixels of each
  // band, and so of the whole, at most a quarter have not changed. The result is good until the next
  // `Take`.
  const std::vector<PixelRect>& Take();

  // The pixels that have changed, exactly, as one rectangle a span; spans of a row do not touch. For tests.
  std::vector<PixelRect> Spans() const;

 private:
  struct Span {
    int left = 0;
    int right = 0;

    Span Union(const Span& with) const { return {std::min(left, with.left), std::max(right, with.right)}; }
  };

  // Rows that will be given as one row of rectangles, and how many pixels of theirs have changed.
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

  // Kept for their capacity, like the rows: a step of an effect allocates nothing.
  Band band_;
  std::vector<PixelRect> taken_;
};

}  // namespace quorvale
