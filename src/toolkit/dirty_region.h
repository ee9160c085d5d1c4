#pragma once

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

  // The region as rectangles that do not overlap, from top to bottom and, in a band, from left to
  // right, all rectangles of a band having its top and height; the region is then empty. Rows that are
  // nearly alike may be joined to a band: at most a quarter of the pixels given have not changed.
  std::vector<PixelRect> Take();

  // The pixels that have changed, exactly. For tests.
  std::vector<PixelRect> Spans() const;

 private:
  struct Span {
    int left = 0;
    int right = 0;
  };

  std::vector<std::vector<Span>> rows_;
  int width_ = 0;
  int first_row_ = 0;
  int last_row_ = -1;
};

}  // namespace quorvale
