#pragma once

#include <memory>
#include <vector>

#include "platform/pictures/row_source.h"
#include "toolkit/units.h"

namespace quorvale {

// The rows of a transparent canvas with a picture on a part of it.
class CanvasRows : public RowSource {
 public:
  CanvasRows(std::unique_ptr<RowSource> picture, int width, int height, const PixelRect& place);

  Side Across() const override { return across_; }
  Side Down() const override { return down_; }
  bool IsOpaque() const override { return false; }
  bool Start(int left, int right, int top) override;
  const Pixel* Row(int y) override;

 private:
  std::unique_ptr<RowSource> picture_;
  Side across_;
  Side down_;
  PixelRect place_;
  // What of a row is wanted, and what of that is the picture's.
  int left_ = 0;
  PixelRect seen_;
  // The last two rows.
  std::vector<Pixel> rows_[2];
};

}  // namespace quorvale
