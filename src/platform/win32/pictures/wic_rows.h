#pragma once

#include <array>
#include <vector>

#include "platform/pictures/row_source.h"
#include "platform/win32/pictures/wic_codec.h"

namespace quorvale {

// The rows of a picture that the system decodes, a band of them at a time.
class WicRows : public RowSource {
 public:
  // `source` gives pixels as ours are, in `across` by `down`.
  WicRows(WicSource source, Side across, Side down, bool opaque);

  Side Across() const override { return across_; }
  Side Down() const override { return down_; }
  bool IsOpaque() const override { return opaque_; }
  bool Start(int left, int right, int top) override;
  const Pixel* Row(int y) override;

 private:
  struct Band {
    int number = -1;
    bool is_whole = false;
    std::vector<Pixel> pixels;
  };

  void Read(Band& band, int number);

  WicSource source_;
  Side across_;
  Side down_;
  bool opaque_;
  int left_ = 0;
  int width_ = 0;
  // Taken in turn, so that the last row of one stays while the next is read.
  std::array<Band, 2> bands_;
};

}  // namespace quorvale
