#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "toolkit/units.h"

namespace quorvale {

// A set of pixels kept the plain way, to compare regions with.
class PixelSet {
 public:
  PixelSet(int width, int height) : width_(width), bits_(static_cast<std::size_t>(width) * height) {}

  void Set(int x, int y) { bits_[Index(x, y)] = true; }
  bool Has(int x, int y) const { return bits_[Index(x, y)]; }
  void Clear() { bits_.assign(bits_.size(), false); }

  int Count(const PixelRect& rect) const {
    int count = 0;
    for (int y = rect.top; y < rect.Bottom(); ++y) {
      for (int x = rect.left; x < rect.Right(); ++x) count += Has(x, y) ? 1 : 0;
    }
    return count;
  }

  // The longest runs of each row, from top to bottom.
  std::vector<PixelRect> Spans() const {
    std::vector<PixelRect> spans;
    for (int y = 0; y < Height(); ++y) {
      for (int x = 0; x < width_; ++x) {
        if (!Has(x, y)) continue;
        if (x > 0 && Has(x - 1, y)) {
          ++spans.back().width;
        } else {
          spans.push_back({x, y, 1, 1});
        }
      }
    }
    return spans;
  }

  int Width() const { return width_; }
  int Height() const { return width_ == 0 ? 0 : static_cast<int>(bits_.size()) / width_; }

 private:
  std::size_t Index(int x, int y) const { return static_cast<std::size_t>(y) * width_ + x; }

  int width_;
  std::vector<bool> bits_;
};

// Bands from top to bottom, rectangles that do not touch in each; all of `changed` in them, and in each
// band at most a quarter of other pixels.
inline void ExpectBandForm(const std::vector<PixelRect>& rects, const PixelSet& changed) {
  int covered = 0;
  int band_given = 0;
  int band_changed = 0;
  for (std::size_t i = 0; i < rects.size(); ++i) {
    const PixelRect& rect = rects[i];
    ASSERT_FALSE(rect.IsEmpty());
    ASSERT_TRUE(rect.left >= 0 && rect.top >= 0 && rect.Right() <= changed.Width() &&
                rect.Bottom() <= changed.Height());
    const bool same_band = i > 0 && rect.top == rects[i - 1].top;
    if (same_band) {
      ASSERT_EQ(rect.height, rects[i - 1].height);
      ASSERT_GT(rect.left, rects[i - 1].Right());
    } else {
      ASSERT_GE(rect.top, i > 0 ? rects[i - 1].Bottom() : 0);
      band_given = 0;
      band_changed = 0;
    }
    const int count = changed.Count(rect);
    covered += count;
    band_changed += count;
    band_given += rect.width * rect.height;
    const bool last_of_band = i + 1 == rects.size() || rects[i + 1].top != rect.top;
    ASSERT_TRUE(!last_of_band || 4 * (band_given - band_changed) <= band_given);
  }
  ASSERT_EQ(covered, changed.Count({0, 0, changed.Width(), changed.Height()}));
}

}  // namespace quorvale
