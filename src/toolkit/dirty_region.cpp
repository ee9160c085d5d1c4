#include "toolkit/dirty_region.h"

#include <algorithm>
#include <cstddef>

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
    std::vector<Span>& row = rows_[static_cast<std::size_t>(y)];
    const std::int64_t changed = JoinGaps(row);
    if (!JoinRow(row, changed)) {
      GiveBand();
      band_.spans.swap(row);
      band_.top = y;
      band_.height = 1;
      band_.changed = changed;
    }
    row.clear();
  }
  GiveBand();
  band_.spans.clear();
  first_row_ = std::numeric_limits<int>::max();
  last_row_ = -1;
  return taken_;
}

// Joins spans of a row if that adds few unchanged pixels. Returns the number of changed pixels.
std::int64_t DirtyRegion::JoinGaps(std::vector<Span>& row) {
  if (row.empty()) return 0;
  int changed_in_last = row[0].right - row[0].left;
  int changed = changed_in_last;
  std::size_t last = 0;
  for (std::size_t i = 1; i < row.size(); ++i) {
    const Span span = row[i];
    const int length = span.right - span.left;
    changed += length;
    if (IsDenseEnough(changed_in_last + length, span.right - row[last].left)) {
      changed_in_last += length;
      row[last].right = span.right;
    } else {
      changed_in_last = length;
      row[++last] = span;
    }
  }
  row.resize(last + 1);
  return changed;
}

// Adds a row to the band unless that would include too many unchanged pixels.
bool DirtyRegion::JoinRow(const std::vector<Span>& row, std::int64_t changed) {
  const std::size_t count = row.size();
  if (count != band_.spans.size()) return false;
  std::int64_t width = 0;
  int last = -1;
  for (std::size_t i = 0; i < count; ++i) {
    const Span joined = row[i].Union(band_.spans[i]);
    if (joined.left <= last) return false;
    last = joined.right;
    width += joined.right - joined.left;
  }
  if (!IsDenseEnough(band_.changed + changed, width * (band_.height + 1))) return false;

  for (std::size_t i = 0; i < count; ++i) band_.spans[i] = row[i].Union(band_.spans[i]);
  band_.changed += changed;
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
