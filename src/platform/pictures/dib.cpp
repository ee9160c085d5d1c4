#include "platform/pictures/dib.h"

#include <algorithm>
#include <bit>

#include "base/byte_reader.h"

namespace quorvale {
namespace {

// The sizes of headers. BITMAPCOREHEADER has its own layout with numbers of two bytes; all later ones begin with the
// fields of BITMAPINFOHEADER.
constexpr std::size_t kCoreHeader = 12;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kOs2Header = 64;
// From this size on a header has a mask of alpha.
constexpr std::size_t kAlphaHeader = 56;
// The longest known is BITMAPV5HEADER, 124 bytes. A size far beyond is damage.
constexpr std::size_t kLongestHeader = 0xFFFF;

// Beyond this a row alone would take too much memory, and all rows too much time.
constexpr std::int64_t kLongestSide = 1 << 20;
constexpr std::int64_t kMostPixels = 1 << 30;

// Two bytes make a run of 255 pixels. Deltas may skip more, but no real picture is that sparse.
constexpr std::size_t kPixelsToByte = 256;

enum Compression : std::uint32_t { BI_RGB = 0, BI_RLE8 = 1, BI_RLE4 = 2, BI_BITFIELDS = 3, BI_ALPHABITFIELDS = 6 };

constexpr Pixel kOpaqueBlack = 0xFF000000U;
constexpr std::array<Pixel, 4> kMasks16{0x7C00, 0x03E0, 0x001F, 0};
constexpr std::array<Pixel, 4> kMasks32{0xFF0000, 0x00FF00, 0x0000FF, 0};

class HeaderReader {
 public:
  HeaderReader(std::span<const std::uint8_t> info, const ColourTableReading& reading)
      : info_(info), reading_(reading) {}

  std::optional<DibHeader> Read() {
    size_ = At(0).U32();
    if (size_ < kCoreHeader || size_ > std::min(kLongestHeader, info_.size())) return std::nullopt;
    is_core_ = size_ == kCoreHeader;
    if (!ReadSize() || !ReadKind()) return std::nullopt;
    ReadMasks();
    ReadColourTable();
    header_.size = std::min(end_, info_.size());
    return header_;
  }

 private:
  // At an offset into all the bytes.
  ByteReader At(std::size_t offset) const { return ByteReader(info_, offset); }
  // At an offset into the header alone: the fields that a short one leaves out are 0.
  ByteReader Field(std::size_t offset) const { return ByteReader(info_.first(size_), offset); }

  bool ReadSize() {
    const std::int64_t width = is_core_ ? Field(4).U16() : Field(4).I32();
    const std::int64_t height = is_core_ ? Field(6).U16() : Field(8).I32();
    header_.top_down = height < 0;
    const std::int64_t rows = header_.top_down ? -height : height;
    if (width <= 0 || rows == 0 || width > kLongestSide || rows > kLongestSide || width * rows > kMostPixels) {
      return false;
    }
    header_.width = static_cast<int>(width);
    header_.height = static_cast<int>(rows);
    return true;
  }

  bool ReadKind() {
    header_.depth = Field(is_core_ ? 10 : 14).U16();
    if (!is_core_) compression_ = Field(16).U32();
    constexpr std::array kDepths{1, 2, 4, 8, 16, 24, 32};
    const int depth = header_.depth;
    if (std::find(kDepths.begin(), kDepths.end(), depth) == kDepths.end()) return false;
    header_.row_bytes = (static_cast<std::size_t>(header_.width) * static_cast<std::size_t>(depth) + 31) / 32 * 4;
    header_.run_length = compression_ == BI_RLE8 || compression_ == BI_RLE4;
    switch (compression_) {
      case BI_RGB:
        return true;
      case BI_RLE8:
        return depth == 8;
      case BI_RLE4:
        return depth == 4;
      case BI_BITFIELDS:
      case BI_ALPHABITFIELDS:
        // In OS/2 headers the number stands for fax compression.
        return (depth == 16 || depth == 32) && size_ != kOs2Header;
      default:
        return false;
    }
  }

  // Later headers contain the masks and BITMAPINFOHEADER is followed by them, at the same offset.
  void ReadMasks() {
    end_ = size_;
    header_.masks = header_.depth == 16 ? kMasks16 : kMasks32;
    if (compression_ != BI_BITFIELDS && compression_ != BI_ALPHABITFIELDS) return;
    const std::size_t count = compression_ == BI_ALPHABITFIELDS || size_ >= kAlphaHeader ? 4 : 3;
    for (std::size_t i = 0; i < count; ++i) header_.masks[i] = At(kInfoHeader + 4 * i).U32();
    end_ = std::max(end_, kInfoHeader + 4 * count);
  }

  // Bitmaps without indices may have a table too, for screens of few colours. It is skipped.
  void ReadColourTable() {
    const std::size_t used = is_core_ ? 0 : Field(32).U32();
    const std::size_t all = header_.HasColourTable() ? std::size_t{1} << static_cast<unsigned>(header_.depth) : 0;
    std::size_t count = header_.HasColourTable() && (used == 0 || used > all) ? all : used;
    header_.colours.assign(all, kOpaqueBlack);
    if (reading_.usage == ColorUsage::DIB_PAL_INDICES || LacksTable()) {
      MakeColours(count);
      return;
    }
    const bool numbers = reading_.usage == ColorUsage::DIB_PAL_COLORS;
    const std::size_t entry = numbers ? 2 : (is_core_ ? 3 : 4);
    count = std::min({count, reading_.most_colours, (info_.size() - std::min(end_, info_.size())) / entry});
    for (std::size_t i = 0; i < std::min(count, all); ++i) {
      header_.colours[i] = numbers ? OfPalette(At(end_ + i * entry).U16()) : kOpaqueBlack | At(end_ + i * entry).U24();
    }
    end_ += count * entry;
  }

  // Some writers leave the table out and rely on the palette.
  bool LacksTable() const {
    return reading_.rows_follow && header_.HasColourTable() && !header_.run_length && end_ <= info_.size() &&
           info_.size() - end_ == header_.row_bytes * static_cast<std::size_t>(header_.height);
  }

  Pixel OfPalette(std::size_t number) const {
    return reading_.palette != nullptr && number < reading_.palette->size() ? (*reading_.palette)[number]
                                                                            : kOpaqueBlack;
  }

  // Takes the colours of the palette, or greys from black to white.
  void MakeColours(std::size_t count) {
    const std::size_t last = std::max<std::size_t>(count, 2) - 1;
    for (std::size_t i = 0; i < std::min(count, header_.colours.size()); ++i) {
      const auto level = static_cast<Pixel>(i * 255 / last);
      header_.colours[i] =
          reading_.palette != nullptr && count > 2 ? OfPalette(i) : kOpaqueBlack | level << 16U | level << 8U | level;
    }
  }

  std::span<const std::uint8_t> info_;
  const ColourTableReading& reading_;
  std::size_t size_ = 0;
  bool is_core_ = false;
  std::uint32_t compression_ = BI_RGB;
  std::size_t end_ = 0;
  DibHeader header_;
};

// Scales the bits of one channel to 0 to 255.
class Channel {
 public:
  explicit Channel(Pixel mask) : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)) {
    if (mask != 0) factor_ = 255.0 / (mask >> shift_);
  }
  Pixel Of(Pixel stored) const {
    // A half more, so that the cut rounds.
    const double level = ((stored & mask_) >> shift_) * factor_ + 0.5;
    return static_cast<Pixel>(level);
  }

 private:
  Pixel mask_;
  int shift_;
  double factor_ = 0;
};

// A premultiplied channel above its alpha would overflow when it is blended.
Pixel Capped(Pixel colour, Pixel alpha) {
  const auto channel = [&](unsigned shift) { return std::min(colour >> shift & 0xFFU, alpha) << shift; };
  return alpha << 24U | channel(16) | channel(8) | channel(0);
}

class DibRows : public SequentialRows {
 public:
  explicit DibRows(const DibHeader& header) : SequentialRows({header.width, header.height}), header_(header) {}

  bool IsOpaque() const override { return header_.IsOpaque(); }

 protected:
  const DibHeader& Header() const { return header_; }

 private:
  const DibHeader& header_;
};

// Every row takes the same number of bytes, so that only the columns in view are read.
class PlainRows : public DibRows {
 public:
  PlainRows(ByteSource& bytes, std::size_t offset, const DibHeader& header)
      : DibRows(header),
        source_(bytes),
        offset_(offset),
        bits_(static_cast<std::size_t>(header.depth)),
        channels_{Channel(header.masks[0]), Channel(header.masks[1]), Channel(header.masks[2]),
                  Channel(header.masks[3])} {}

 protected:
  bool GoTo(int /*top*/) override { return true; }

  bool Decode(int y, std::span<Pixel> row) override {
    const std::size_t first_bit = static_cast<std::size_t>(Left()) * bits_;
    bytes_.resize((first_bit % 8 + row.size() * bits_ + 7) / 8);
    const std::size_t start = offset_ + static_cast<std::size_t>(y) * Header().row_bytes + first_bit / 8;
    if (!source_.Copy(start, bytes_)) return false;
    switch (bits_) {
      case 16:
        UnpackMasked<2>(row);
        break;
      case 24:
        UnpackBytes<3>(row);
        break;
      case 32:
        if (HasBytes()) {
          UnpackBytes<4>(row);
        } else {
          UnpackMasked<4>(row);
        }
        break;
      default:
        UnpackIndices(row, first_bit % 8);
    }
    return true;
  }

 private:
  // The usual masks of 32 bits: each channel is a byte, in the order of 24 bits.
  bool HasBytes() const {
    return std::equal(kMasks32.begin(), kMasks32.begin() + 3, Header().masks.begin()) &&
           (Header().IsOpaque() || Header().masks[3] == kOpaqueBlack);
  }

  // `colour` has no alpha of its own.
  Pixel WithAlpha(Pixel colour, Pixel alpha) const {
    return Header().premultiplied ? Capped(colour, alpha) : Premultiplied(colour, alpha);
  }

  template <std::size_t kSize>
  void UnpackMasked(std::span<Pixel> row) const {
    const std::uint8_t* from = bytes_.data();
    for (Pixel& pixel : row) {
      Pixel stored = 0;
      for (std::size_t i = 0; i < kSize; ++i) stored |= Pixel{*from++} << 8 * i;
      pixel = channels_[0].Of(stored) << 16U | channels_[1].Of(stored) << 8U | channels_[2].Of(stored);
      pixel = Header().IsOpaque() ? pixel | kOpaqueBlack : WithAlpha(pixel, channels_[3].Of(stored));
    }
  }

  template <std::size_t kSize>
  void UnpackBytes(std::span<Pixel> row) const {
    const bool opaque = kSize == 3 || Header().IsOpaque();
    const std::uint8_t* from = bytes_.data();
    for (Pixel& pixel : row) {
      pixel = Pixel{from[2]} << 16U | Pixel{from[1]} << 8U | from[0];
      pixel = opaque ? pixel | kOpaqueBlack : WithAlpha(pixel, from[kSize - 1]);
      from += kSize;
    }
  }

  void UnpackIndices(std::span<Pixel> row, std::size_t bit) const {
    const std::vector<Pixel>& colours = Header().colours;
    for (Pixel& pixel : row) {
      pixel = colours[bytes_[bit / 8] >> (8 - bits_ - bit % 8) & (colours.size() - 1)];
      bit += bits_;
    }
  }

  ByteSource& source_;
  std::size_t offset_;
  std::size_t bits_;
  std::array<Channel, 4> channels_;
  std::vector<std::uint8_t> bytes_;
};

// RLE4 and RLE8: a count and a colour, or a 0 and an escape code.
class RunRows : public DibRows {
 public:
  RunRows(ByteSource& bytes, std::size_t offset, const DibHeader& header)
      : DibRows(header), bytes_(bytes, offset), nibbles_(header.depth == 4) {}

 protected:
  bool GoTo(int top) override {
    for (int y = 0; y < top; ++y) {
      if (!Decode(y, {})) return false;
    }
    return true;
  }

  // A row that the end of the file cuts off counts if it has begun.
  bool Decode(int /*y*/, std::span<Pixel> row) override {
    std::fill(row.begin(), row.end(), Header().colours[0]);
    if (rows_passed_over_ > 0) {
      --rows_passed_over_;
      return true;
    }
    for (bool begun = ended_; !ended_; begun = true) {
      const int count = bytes_.Next();
      const int value = bytes_.Next();
      if (value < 0) return begun;
      if (count > 0) {
        Repeat(row, count, value);
      } else if (value > RLE_DELTA) {
        Copy(row, value);
      } else if (!GoesOn(value)) {
        break;
      }
    }
    return true;
  }

 private:
  enum Escape : int { RLE_END_OF_LINE = 0, RLE_END_OF_BITMAP = 1, RLE_DELTA = 2 };

  // Reads an escape code. Returns whether the row goes on behind it.
  bool GoesOn(int escape) {
    if (escape == RLE_DELTA) {
      x_ += std::max(0, bytes_.Next());
      rows_passed_over_ = bytes_.Next() - 1;
      return rows_passed_over_ < 0;
    }
    if (escape == RLE_END_OF_LINE) x_ = 0;
    ended_ = escape == RLE_END_OF_BITMAP;
    return false;
  }

  // Runs may go on beyond the row's end.
  void Put(std::span<Pixel> row, int index) {
    const std::int64_t column = x_++ - Left();
    if (column >= 0 && column < static_cast<std::int64_t>(row.size())) {
      row[static_cast<std::size_t>(column)] = Header().colours[static_cast<std::size_t>(index)];
    }
  }

  // In RLE4 the pixels of a run alternate between the two nibbles.
  void Repeat(std::span<Pixel> row, int count, int value) {
    for (int i = 0; i < count; ++i) Put(row, !nibbles_ ? value : i % 2 == 0 ? value >> 4 : value & 15);
  }

  // Pixels that are stored one by one fill an even number of bytes.
  void Copy(std::span<Pixel> row, int count) {
    const int bytes = nibbles_ ? (count + 1) / 2 : count;
    for (int i = 0; i < bytes; ++i) {
      const int value = bytes_.Next();
      if (value < 0) return;
      Put(row, nibbles_ ? value >> 4 : value);
      if (nibbles_ && 2 * i + 1 < count) Put(row, value & 15);
    }
    if (bytes % 2 != 0) bytes_.Next();
  }

  ByteStream bytes_;
  bool nibbles_;
  // Where the next pixel goes.
  std::int64_t x_ = 0;
  // The rows that a delta still skips.
  int rows_passed_over_ = 0;
  bool ended_ = false;
};

}  // namespace

bool DibHeader::FitsInto(std::size_t bytes) const {
  const auto columns = static_cast<std::size_t>(width);
  const auto rows = static_cast<std::size_t>(height);
  if (run_length) return columns * rows / kPixelsToByte <= bytes;
  return row_bytes * (rows - 1) + (columns * static_cast<std::size_t>(depth) + 7) / 8 <= bytes;
}

std::optional<DibHeader> ReadDibHeader(std::span<const std::uint8_t> info, const ColourTableReading& reading) {
  return HeaderReader(info, reading).Read();
}

std::unique_ptr<RowSource> OpenDibRows(ByteSource& bytes, std::size_t offset, const DibHeader& header) {
  if (header.run_length) return std::make_unique<RunRows>(bytes, offset, header);
  return std::make_unique<PlainRows>(bytes, offset, header);
}

}  // namespace quorvale
