#include "toolkit/dirty_region.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorvale {
namespace {

bool IsDenseEnough(std::int64_t changed, std::int64_t given) { return 4 * (given - changed) <= given; }

}  // namespace

void DirtyRegion::Reset(int width, int height) {
  rows_.assign(static_cast<std::size_t>(width > 0 ? std::max(height, 0) : 0), {});
  first_row_ = std::numeric_limits<int>::max();
  last_row_ = -1;
}

void DirtyRegion::Add(int y, int left, int right) {
  if (left >= right) return;
  first_row_ = std::min(first_row_, y);
  last_row_ = std::max(last_row_, y);

  // Shapes are drawn from left to right, so most spans go to the end of their row.
  std::vector<Span>& row = rows_[static_cast<std::size_t>(y)];
  if (row.empty() || left > row.back().right) {
    row.push_back({left, right});
    return;
  }
  const auto first =
      std::lower_bound(row.begin(), row.end(), left, [](const Span& span, int edge) { return span.right < edge; });
  const auto last =
      std::upper_bound(first, row.end(), right, [](int edge, const Span& span) { return edge < span.left; });
  if (first == last) {
    row.insert(first, {left, right});
    return;
  }
  first->left = std::min(first->left, left);
  first->right = std::max((last - 1)->right, right);
  row.erase(first + 1, last);
}

void DirtyRegion::Add(const PixelRect& rect) {
  for (int y = rect.top; y < rect.Bottom(); ++y) Add(y, rect.left, rect.Right());
}

const std::vector<PixelRect>& DirtyRegion::Take() {
  taken_.clear();
  for (int y = first_row_; y <= last_row_; ++y) {
    JoinGaps(y);
    rows_[static_cast<std::size_t>(y)].clear();
    if (JoinRow()) continue;
    GiveBand();
    std::swap(band_, row_);
  }
  GiveBand();
  band_.spans.clear();
  first_row_ = std::numeric_limits<int>::max();
  last_row_ = -1;
  return taken_;
}

void DirtyRegion::JoinGaps(int y) {
  row_.spans.clear();
  row_.top = y;
  row_.height = 1;
  row_.changed = 0;
  int changed = 0;
  for (const Span& span : rows_[static_cast<std::size_t>(y)]) {
    const int length = span.right - span.left;
    row_.changed += length;
    changed += length;
    if (!row_.spans.empty() && IsDenseEnough(changed, span.right - row_.spans.back().left)) {
      row_.spans.back().right = span.right;
    } else {
      row_.spans.push_back(span);
      changed = length;
    }
  }
}

// Takes `row_` into `band_` unless that would give too many pixels that have not changed.
bool DirtyRegion::JoinRow() {
  const std::size_t count = row_.spans.size();
  if (count != band_.spans.size()) return false;
  std::int64_t width = 0;
  for (std::size_t i = 0; i < count; ++i) {
    Span& span = row_.spans[i];
    const Span& above = band_.spans[i];
    width += std::max(span.right, above.right) - std::min(span.left, above.left);
  }
  if (!IsDenseEnough(band_.changed + row_.changed, width * (band_.height + 1))) return false;
  for (std::size_t i = 1; i < count; ++i) {
    const int left = std::min(row_.spans[i].left, band_.spans[i].left);
    if (left <= std::max(row_.spans[i - 1].right, band_.spans[i - 1].right)) return false;
  }

  for (std::size_t i = 0; i < count; ++i) {
    band_.spans[i] = {std::min(row_.spans[i].left, band_.spans[i].left),
                      std::max(row_.spans[i].right, band_.spans[i].right)};
  }
  band_.changed += row_.changed;
  ++band_.height;
  return true;
}

void DirtyRegion::GiveBand() {
  for (const Span& span : band_.spans) taken_.push_back({span.left, band_.top, span.right - span.left, band_.height});
}

std::vector<PixelRect> DirtyRegion::Spans() const {
  std::vector<PixelRect> spans;
  for (int y = first_row_; y <= last_row_; ++y) {
    for (const Span& span : rows_[static_cast<std::size_t>(y)]) {
      spans.push_back({span.left, y, span.right - span.left, 1});
    }
  }
  return spans;
}

}  // namespace quorvale
