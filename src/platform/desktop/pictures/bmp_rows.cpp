#include "platform/desktop/pictures/bmp_rows.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/desktop/pictures/byte_stream.h"
#include "platform/pictures/sequential_rows.h"

namespace quorvale {
namespace {

class BmpRows : public SequentialRows {
 public:
  explicit BmpRows(const BmpHeader& header) : SequentialRows({header.width, header.height}), header_(header) {}

  bool IsOpaque() const override { return header_.IsOpaque(); }

 protected:
  const BmpHeader& Header() const { return header_; }

 private:
  const BmpHeader& header_;
};

// Spreads the bits of one colour over a byte.
class Channel {
 public:
  explicit Channel(Pixel mask) : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)) {
    if (mask != 0) factor_ = 255.0 / (mask >> shift_);
  }
  Pixel Of(Pixel stored) const {
    // Half a step more, since the result is cut to whole steps.
    const double level = ((stored & mask_) >> shift_) * factor_ + 0.5;
    return static_cast<Pixel>(level);
  }

 private:
  Pixel mask_;
  int shift_;
  double factor_ = 0;
};

// A colour by an alpha, which joins it.
Pixel Multiplied(Pixel colour, Pixel alpha) {
  const auto channel = [&](unsigned shift) { return ((colour >> shift & 0xFFU) * alpha + 127U) / 255U << shift; };
  return alpha << 24U | channel(16) | channel(8) | channel(0);
}

// Every row takes the same number of bytes: only those that are seen are read.
class PlainRows : public BmpRows {
 public:
  PlainRows(PictureFile& file, const BmpHeader& header)
      : BmpRows(header),
        file_(file),
        bits_(static_cast<std::size_t>(header.bits)),
        row_bytes_((static_cast<std::size_t>(header.width) * bits_ + 31) / 32 * 4),
        channels_{Channel(header.masks[0]), Channel(header.masks[1]), Channel(header.masks[2]),
                  Channel(header.masks[3])} {}

 protected:
  bool GoTo(int /*top*/) override { return true; }

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
      pixel = channels_[0].Of(stored) << 16U | channels_[1].Of(stored) << 8U | channels_[2].Of(stored);
      pixel = Header().IsOpaque() ? pixel | 0xFF000000U : Multiplied(pixel, channels_[3].Of(stored));
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
  std::array<Channel, 4> channels_;
  std::vector<std::uint8_t> bytes_;
};

// Runs of one colour, rows of several, and jumps, which leave out pixels: those get the first colour.
class RunRows : public BmpRows {
 public:
  RunRows(PictureFile& file, const BmpHeader& header) : BmpRows(header), bytes_(file, header.rows) {}

 protected:
  bool GoTo(int top) override {
    for (int y = 0; y < top; ++y) {
      if (!Decode(y, {})) return false;
    }
    return true;
  }

  // A row that the file's end cuts off counts if it has begun.
  bool Decode(int /*y*/, std::span<Pixel> row) override {
    std::fill(row.begin(), row.end(), Header().palette[0]);
    if (left_out_ > 0) {
      --left_out_;
      return true;
    }
    for (bool begun = ended_; !ended_; begun = true) {
      const int count = bytes_.Next();
      const int value = bytes_.Next();
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

  // Whether the row goes on.
  bool Obey(int command) {
    if (command == kJump) {
      x_ += std::max(0, bytes_.Next());
      left_out_ = bytes_.Next() - 1;
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
      const int value = bytes_.Next();
      if (value < 0) return;
      Put(row, halves ? value >> 4 : value);
      if (halves && 2 * i + 1 < count) Put(row, value & 15);
    }
    if (bytes % 2 != 0) bytes_.Next();
  }

  ByteStream bytes_;
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
