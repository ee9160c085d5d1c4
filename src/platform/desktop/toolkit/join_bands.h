#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// Trades pixels for rectangles: presenting a rectangle costs as much as presenting some hundred pixels, so
// thin slivers are joined to larger rectangles where that is cheaper in sum. What it adds has not changed
// and is put on the screen as it is there already.
class BandJoiner {
 public:
  // `rects` come as `DirtyRegion::Take` gives them, and the result, valid until the next call, is of the
  // same form.
  const std::vector<PixelRect>& Join(const std::vector<PixelRect>& rects);

 private:
  // The rectangles of one band, from left to right.
  struct Band {
    std::vector<PixelRect> rects;
    std::int64_t area = 0;

    void Add(const PixelRect& rect);
    bool IsRightAbove(const Band& next) const;
  };

  bool JoinInPairs();
  bool JoinToBox();
  void GiveBand();

  // Kept for their capacity: a step of an effect allocates nothing.
  Band band_;
  Band next_;
  std::vector<PixelRect> joined_;
};

}  // namespace quorvale
