#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// Joins rectangles to be presented where that is cheaper: a rectangle costs as much as some hundred pixels. Pixels
// that are added this way have not changed, so presenting them changes nothing on the screen.
class BandJoiner {
 public:
  // `rects` are ordered as `DirtyRegion::Take` returns them, and so is the result. It is valid until the next call.
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
  void FlushBand();

  // Kept between calls for their capacity, so that a step of an effect allocates nothing.
  Band band_;
  Band next_;
  std::vector<PixelRect> joined_;
};

}  // namespace quorvale
