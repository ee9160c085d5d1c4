#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/pictures/orientation.h"
#include "toolkit/bitmap.h"

namespace quorvale {

// The level of a channel times an alpha, both 0 to 255, rounded.
constexpr Pixel Multiplied(Pixel level, Pixel alpha) { return (level * alpha + 127U) / 255U; }

// A colour, multiplied by `alpha`, which becomes its own alpha.
constexpr Pixel Premultiplied(Pixel colour, Pixel alpha) {
  const auto channel = [&](unsigned shift) { return Multiplied(colour >> shift & 0xFFU, alpha) << shift; };
  return alpha << 24U | channel(16) | channel(8) | channel(0);
}

// A picture that is decoded row by row, as it is stored.
class RowSource {
 public:
  virtual ~RowSource() = default;

  // One side: `count` pixels. They cover `length`, which may end within the last one.
  struct Side {
    int count = 0;
    double length = 0;
  };
  virtual Side Across() const = 0;
  virtual Side Down() const = 0;

  // Whether every pixel's alpha is 255. Otherwise colours are premultiplied.
  virtual bool IsOpaque() const = 0;

  // The bytes that decoding takes beside a few rows.
  virtual std::size_t Memory() const { return 0; }

  // Rows will hold the columns from `left` up to but not including `right`, and start at the row `top`. False if the
  // picture is too damaged. Called once.
  virtual bool Start(int left, int right, int top) = 0;

  // The pixels of a row from `left` on. Rows are asked for from top to bottom; the last two stay valid and may be asked
  // for again. Null if damage ends the picture before.
  virtual const Pixel* Row(int y) = 0;

  // Puts the row there, for a caller that needs no row twice. Some sources save a copy by decoding it there. False if
  // damage ends the picture before.
  virtual bool Read(int y, std::span<Pixel> to) {
    const Pixel* const row = Row(y);
    if (row != nullptr) std::copy_n(row, to.size(), to.begin());
    return row != nullptr;
  }
};

// A picture that is decoded at its full size, one row after the other.
class SequentialRows : public RowSource {
 public:
  explicit SequentialRows(PixelSize size) : size_(size) {}

  Side Across() const override { return {size_.width, static_cast<double>(size_.width)}; }
  Side Down() const override { return {size_.height, static_cast<double>(size_.height)}; }

  bool Start(int left, int right, int top) override {
    left_ = left;
    for (auto& row : rows_) row.resize(static_cast<std::size_t>(right - left));
    next_ = top;
    return GoTo(top);
  }

  const Pixel* Row(int y) override {
    for (; next_ <= y; ++next_) {
      if (!Decode(next_, rows_[static_cast<std::size_t>(next_) % 2])) return nullptr;
    }
    return rows_[static_cast<std::size_t>(y) % 2].data();
  }

 protected:
  // Makes `top` the next row to be decoded. False if the picture is too damaged.
  virtual bool GoTo(int top) = 0;
  // Decodes the pixels of a row from `Left` on. False if damage ends the picture.
  virtual bool Decode(int y, std::span<Pixel> row) = 0;

  int Left() const { return left_; }

 private:
  PixelSize size_;
  int left_ = 0;
  int next_ = 0;
  // The last two rows.
  std::array<std::vector<Pixel>, 2> rows_;
};

}  // namespace quorvale
