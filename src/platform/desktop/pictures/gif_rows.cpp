#include "platform/desktop/pictures/gif_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/desktop/pictures/gif_codes.h"
#include "platform/pictures/sequential_rows.h"

namespace quorvale {
namespace {

class GifRows : public SequentialRows {
 public:
  GifRows(PictureFile& file, const GifHeader& header)
      : SequentialRows(header.size),
        header_(header),
        codes_(file, header.codes, header.code_bits),
        next_(static_cast<std::size_t>(header.frame.width)) {}

  bool IsOpaque() const override { return header_.IsOpaque(); }

 protected:
  bool Decode(int y, std::span<Pixel> row) override {
    std::fill(row.begin(), row.end(), 0);
    if (y < header_.frame.top || y >= header_.frame.Bottom()) return true;
    const std::uint8_t* const indices = FrameRow(y - header_.frame.top);
    if (indices == nullptr) return false;
    const int first = std::max(Left(), header_.frame.left);
    const int end = std::min(Left() + static_cast<int>(row.size()), header_.frame.Right());
    for (int x = first; x < end; ++x) {
      row[static_cast<std::size_t>(x - Left())] = header_.palette[indices[x - header_.frame.left]];
    }
    return true;
  }

  // The colours of a row of the frame; null where the codes have ended. Rows are asked for downwards.
  virtual const std::uint8_t* FrameRow(int y) = 0;

  const PixelRect& Frame() const { return header_.frame; }

  // The next row in the order of the file.
  const std::uint8_t* NextStored() {
    for (auto& index : next_) {
      const int number = codes_.Next();
      if (number < 0) return nullptr;
      index = static_cast<std::uint8_t>(number);
    }
    return next_.data();
  }

 private:
  const GifHeader& header_;
  GifCodes codes_;
  std::vector<std::uint8_t> next_;
};

class PlainRows : public GifRows {
 public:
  using GifRows::GifRows;

 protected:
  // Without a single row it is no picture, whatever part of it is in view.
  bool GoTo(int top) override {
    if (FrameRow(0) == nullptr) return false;
    const int passed = std::min(top - Frame().top, Frame().height);
    if (passed > 0) FrameRow(passed - 1);
    return true;
  }

  const std::uint8_t* FrameRow(int y) override {
    for (; done_ <= y; ++done_) {
      row_ = NextStored();
      if (row_ == nullptr) break;
    }
    return row_;
  }

 private:
  const std::uint8_t* row_ = nullptr;
  int done_ = 0;
};

// First every eighth row, then those in the middle between, and so on: all are there before one is shown.
class InterlacedRows : public GifRows {
 public:
  using GifRows::GifRows;

  std::size_t Memory() const override {
    return static_cast<std::size_t>(Frame().width) * static_cast<std::size_t>(Frame().height);
  }

 protected:
  bool GoTo(int /*top*/) override {
    indices_.resize(Memory());
    is_stored_.resize(static_cast<std::size_t>(Frame().height));
    return (StorePass(0, 8) && StorePass(4, 8) && StorePass(2, 4) && StorePass(1, 2)) || is_stored_[0];
  }

  // A row that is missing looks like the one above that an earlier pass has left.
  const std::uint8_t* FrameRow(int y) override {
    for (int distance = 1; distance <= 8; distance *= 2) {
      const auto row = static_cast<std::size_t>(y - y % distance);
      if (is_stored_[row]) return indices_.data() + row * static_cast<std::size_t>(Frame().width);
    }
    return nullptr;
  }

 private:
  bool StorePass(int first, int step) {
    for (int y = first; y < Frame().height; y += step) {
      const std::uint8_t* const row = NextStored();
      if (row == nullptr) return false;
      const auto width = static_cast<std::size_t>(Frame().width);
      std::copy_n(row, width, indices_.begin() + static_cast<std::ptrdiff_t>(static_cast<std::size_t>(y) * width));
      is_stored_[static_cast<std::size_t>(y)] = true;
    }
    return true;
  }

  std::vector<std::uint8_t> indices_;
  std::vector<bool> is_stored_;
};

}  // namespace

std::unique_ptr<RowSource> OpenGifRows(PictureFile& file, const GifHeader& header) {
  if (header.interlaced) return std::make_unique<InterlacedRows>(file, header);
  return std::make_unique<PlainRows>(file, header);
}

}  // namespace quorvale
