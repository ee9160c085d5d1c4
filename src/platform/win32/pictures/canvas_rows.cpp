#include "platform/win32/pictures/canvas_rows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorvale {

CanvasRows::CanvasRows(std::unique_ptr<RowSource> picture, int width, int height, const PixelRect& place)
    : picture_(std::move(picture)),
      across_{width, static_cast<double>(width)},
      down_{height, static_cast<double>(height)},
      place_(place) {}

bool CanvasRows::Start(int left, int right, int top) {
  left_ = left;
  for (auto& row : rows_) row.assign(static_cast<std::size_t>(right - left), 0);
  seen_ = Intersect(place_, {left, 0, right - left, down_.count});
  if (seen_.IsEmpty()) return picture_->Start(0, 1, 0) && picture_->Row(0) != nullptr;
  return picture_->Start(seen_.left - place_.left, seen_.Right() - place_.left, std::max(0, top - place_.top));
}

const Pixel* CanvasRows::Row(int y) {
  auto& row = rows_[y % 2];
  std::fill(row.begin(), row.end(), 0);
  if (!seen_.IsEmpty() && y >= seen_.top && y < seen_.Bottom()) {
    const Pixel* from = picture_->Row(y - place_.top);
    if (from == nullptr) return nullptr;
    std::copy_n(from, seen_.width, row.begin() + (seen_.left - left_));
  }
  return row.data();
}

}  // namespace quorvale
