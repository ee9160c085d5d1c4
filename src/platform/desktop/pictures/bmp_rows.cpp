#include "platform/desktop/pictures/bmp_rows.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <vector>

namespace quorvale {
namespace {

// One row after the other, of which two are kept.
class BmpRows : public RowSource {
 public:
  explicit BmpRows(const BmpHeader& header) : header_(header) {}

  Side Across() const override { return {header_.width, static_cast<double>(header_.width)}; }
  Side Down() const override { return {header_.height, static_cast<double>(header_.height)}; }
  bool IsOpaque() const override { return true; }

  bool Start(int left, int right, int top) override {
    left_ = left;
    for (auto& row : rows_) row.resize(static_cast<std::size_t>(right - left));
    return GoTo(top);
  }

  const Pixel* Row(int y) override {
    for (; next_ <= y; ++next_) {
      if (!Decode(next_, rows_[static_cast<std::size_t>(next_) % 2])) return nullptr;
    }
    return rows_[static_cast<std::size_t>(y) % 2].data();
  }

 protected:
  // False where the file ends.
  virtual bool GoTo(int top) {
    next_ = top;
    return true;
  }
  virtual bool Decode(int y, std::span<Pixel> row) = 0;

  const BmpHeader& Header() const { return header_; }
  int Left() const { return left_; }

 private:
  const BmpHeader& header_;
  int left_ = 0;
  int next_ = 0;
  std::array<std::vector<Pixel>, 2> rows_;
};

// Spreads the bits of one colour over a byte.
class Channel {
 public:
  explicit Channel(Pixel mask) : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)) {
    if (mask != 0) factor_ = 255.0 / (mask >> shift_);
  }
  Pixel Of(Pixel stored) const { return static_cast<Pixel>(((stored & mask_) >> shift_) * factor_ + 0.5); }

 private:
  Pixel mask_;
  int shift_;
  double factor_ = 0;
};

// Every row takes the same number of bytes: only those that are seen are read.
class PlainRows : public BmpRows {
 public:
  PlainRows(PictureFile& file, const BmpHeader& header)
      : BmpRows(header),
        file_(file),
        bits_(static_cast<std::size_t>(header.bits)),
        row_bytes_((static_cast<std::size_t>(header.width) * bits_ + 31) / 32 * 4),
        channels_{Channel(header.masks[0]), Channel(header.masks[1]), Channel(header.masks[2])} {}

 protected:
  bool Decode(int y, std::span<Pixel> row) override {
    const std::size_t first_bit = static_cast<std::size_t>(Left()) * bits_;
    bytes_.resize((first_bit % 8 + row.size() * bits_ + 7) / 8);
    if (!file_.Copy(Header().rows + static_cast<std::size_t>(y) * row_bytes_ + first_bit / 8, bytes_)) return false;
    switch (bits_) {
      case 16:
        UnpackMasked<2>(row);
        break;
      case 24:
        UnpackBytes(row);
        break;
      case 32:
        UnpackMasked<4>(row);
        break;
      default:
        UnpackIndices(row, first_bit % 8);
    }
    return true;
  }

 private:
  template <std::size_t kSize>
  void UnpackMasked(std::span<Pixel> row) const {
    const std::uint8_t* from = bytes_.data();
    for (Pixel& pixel : row) {
      Pixel stored = 0;
      for (std::size_t i = 0; i < kSize; ++i) stored |= Pixel{*from++} << 8 * i;
      pixel = 0xFF000000U | channels_[0].Of(stored) << 16U | channels_[1].Of(stored) << 8U | channels_[2].Of(stored);
    }
  }

  void UnpackBytes(std::span<Pixel> row) const {
    const std::uint8_t* from = bytes_.data();
    for (Pixel& pixel : row) {
      pixel = 0xFF000000U | Pixel{from[2]} << 16U | Pixel{from[1]} << 8U | from[0];
      from += 3;
    }
  }

  void UnpackIndices(std::span<Pixel> row, std::size_t bit) const {
    const std::vector<Pixel>& palette = Header().palette;
    for (Pixel& pixel : row) {
      pixel = palette[bytes_[bit / 8] >> (8 - bits_ - bit % 8) & (palette.size() - 1)];
      bit += bits_;
    }
  }

  PictureFile& file_;
  std::size_t bits_;
  std::size_t row_bytes_;
  std::array<Channel, 3> channels_;
  std::vector<std::uint8_t> bytes_;
};

// Runs of one colour, rows of several, and jumps, which leave out pixels: those get the first colour.
class RunRows : public BmpRows {
 public:
  RunRows(PictureFile& file, const BmpHeader& header) : BmpRows(header), file_(file), offset_(header.rows) {}

 protected:
  bool GoTo(int top) override {
    for (int y = 0; y < top; ++y) {
      if (!Decode(y, {})) return false;
    }
    return BmpRows::GoTo(top);
  }

  // A row that the file's end cuts off counts if it has begun.
  bool Decode(int /*y*/, std::span<Pixel> row) override {
    std::fill(row.begin(), row.end(), Header().palette[0]);
    if (left_out_ > 0) {
      --left_out_;
      return true;
    }
    for (bool begun = ended_; !ended_; begun = true) {
      const int count = Next();
      const int value = Next();
      if (value < 0) return begun;
      if (count > 0) {
        Repeat(row, count, value);
      } else if (value > kJump) {
        Copy(row, value);
      } else if (!Obey(value)) {
        break;
      }
    }
    return true;
  }

 private:
  static constexpr int kEndOfRow = 0;
  static constexpr int kEndOfPicture = 1;
  static constexpr int kJump = 2;

  // The next byte, or -1 at the end.
  int Next() {
    if (at_ == bytes_.size()) {
      bytes_ = file_.From(offset_);
      offset_ += bytes_.size();
      at_ = 0;
      if (bytes_.empty()) return -1;
    }
    return bytes_[at_++];
  }

  // Whether the row goes on.
  bool Obey(int command) {
    if (command == kJump) {
      x_ += std::max(0, Next());
      left_out_ = Next() - 1;
      return left_out_ < 0;
    }
    if (command == kEndOfRow) x_ = 0;
    ended_ = command == kEndOfPicture;
    return false;
  }

  void Put(std::span<Pixel> row, int index) {
    const std::int64_t column = x_++ - Left();
    if (column >= 0 && column < static_cast<std::int64_t>(row.size())) {
      row[static_cast<std::size_t>(column)] = Header().palette[static_cast<std::size_t>(index)];
    }
  }

  // Of four bits a run has two colours by turns.
  void Repeat(std::span<Pixel> row, int count, int value) {
    const bool halves = Header().bits == 4;
    for (int i = 0; i < count; ++i) Put(row, !halves ? value : i % 2 == 0 ? value >> 4 : value & 15);
  }

  // They fill an even number of bytes.
  void Copy(std::span<Pixel> row, int count) {
    const bool halves = Header().bits == 4;
    const int bytes = halves ? (count + 1) / 2 : count;
    for (int i = 0; i < bytes; ++i) {
      const int value = Next();
      if (value < 0) return;
      Put(row, halves ? value >> 4 : value);
      if (halves && 2 * i + 1 < count) Put(row, value & 15);
    }
    if (bytes % 2 != 0) Next();
  }

  PictureFile& file_;
  std::size_t offset_;
  std::span<const std::uint8_t> bytes_;
  std::size_t at_ = 0;
  // Where the next pixel goes; a row may be longer than it should.
  std::int64_t x_ = 0;
  // Rows that a jump leaves out.
  int left_out_ = 0;
  bool ended_ = false;
};

}  // namespace

std::unique_ptr<RowSource> OpenBmpRows(PictureFile& file, const BmpHeader& header) {
  if (header.runs) return std::make_unique<RunRows>(file, header);
  return std::make_unique<PlainRows>(file, header);
}

}  // namespace quorvale
