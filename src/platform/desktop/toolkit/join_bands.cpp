#include "platform/desktop/toolkit/join_bands.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace quorvale {
namespace {

// From a disc that grows to 3840 by 2160 on an X server in memory: everything between 100 and 400 is
// within a tenth of the best, 25 and 1,000 take twice as long.
constexpr std::int64_t kPixelsPerRect = 200;

// The rectangles of one band, from left to right.
using Band = std::vector<PixelRect>;

std::int64_t Area(const PixelRect& rect) { return std::int64_t{rect.width} * rect.height; }

std::int64_t Area(const Band& band) {
  std::int64_t area = 0;
  for (const PixelRect& rect : band) area += Area(rect);
  return area;
}

PixelRect Unite(const PixelRect& a, const PixelRect& b) {
  const int left = std::min(a.left, b.left);
  const int top = std::min(a.top, b.top);
  return {left, top, std::max(a.Right(), b.Right()) - left, std::max(a.Bottom(), b.Bottom()) - top};
}

// The next band of `rects` from `at` on, with its narrow gaps filled.
Band NextBand(const std::vector<PixelRect>& rects, std::size_t& at) {
  Band band;
  for (const int top = rects[at].top; at < rects.size() && rects[at].top == top; ++at) {
    const PixelRect& rect = rects[at];
    if (!band.empty() && std::int64_t{rect.left - band.back().Right()} * rect.height <= kPixelsPerRect) {
      band.back() = Unite(band.back(), rect);
    } else {
      band.push_back(rect);
    }
  }
  return band;
}

// Each rectangle of one band joined to its neighbour in the other, or nothing when they don't match.
Band JoinInPairs(const Band& a, const Band& b) {
  Band joined;
  if (a.size() != b.size()) return joined;
  for (std::size_t i = 0; i < a.size(); ++i) {
    joined.push_back(Unite(a[i], b[i]));
    if (i > 0 && joined[i].left <= joined[i - 1].Right()) return {};
  }
  return joined;
}

// Joins `next` to the band just above it if that pays.
bool Join(Band& band, const Band& next) {
  if (band.empty() || band.front().Bottom() != next.front().top) return false;
  const std::int64_t apart = Area(band) + Area(next);
  const auto rects_apart = static_cast<std::int64_t>(band.size() + next.size());
  Band as_box{Unite(Unite(band.front(), band.back()), Unite(next.front(), next.back()))};
  for (Band joined : {JoinInPairs(band, next), std::move(as_box)}) {
    const std::int64_t rects_saved = rects_apart - static_cast<std::int64_t>(joined.size());
    if (joined.empty() || Area(joined) - apart > rects_saved * kPixelsPerRect) continue;
    band = std::move(joined);
    return true;
  }
  return false;
}

}  // namespace

std::vector<PixelRect> JoinBands(const std::vector<PixelRect>& rects) {
  std::vector<PixelRect> result;
  Band band;
  for (std::size_t at = 0; at < rects.size();) {
    Band next = NextBand(rects, at);
    if (Join(band, next)) continue;
    result.insert(result.end(), band.begin(), band.end());
    band = std::move(next);
  }
  result.insert(result.end(), band.begin(), band.end());
  return result;
}

}  // namespace quorvale
