#include "platform/desktop/metafile/dib.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace quorvale::metafile {
namespace {

constexpr std::size_t kCoreHeaderSize = 12;
constexpr std::size_t kInfoHeaderSize = 40;
constexpr std::int64_t kMostPixels = std::int64_t{64} << 20U;
enum Compression : unsigned { BI_RGB, BI_RLE8, BI_RLE4, BI_BITFIELDS };

struct DibHeader {
  bool valid = false;
  int width = 0;
  int height = 0;
  bool top_down = false;
  int depth = 0;
  bool run_length = false;
  // Where red, green and blue are in a pixel of 16 or 32 bits.
  std::array<unsigned, 3> masks{};
  std::vector<QRgb> colours;
  // Bytes up to the rows, no more than there are.
  std::size_t size = 0;
};

// Bytes from one row to the next, unless run-length encoded.
std::size_t Stride(const DibHeader& header) {
  return (static_cast<std::size_t>(header.width) * static_cast<unsigned>(header.depth) + 31) / 32 * 4;
}

// The selected palette, or a scale from black to white.
std::vector<QRgb> ColoursWithoutTable(const DibSource& source, std::size_t count) {
  if (source.palette != nullptr && count > 2) return source.palette->colours;
  std::vector<QRgb> colours;
  const std::size_t last = std::max<std::size_t>(count, 2) - 1;
  for (std::size_t i = 0; i < count && i < 256; ++i) {
    const auto level = static_cast<int>(i * 255 / last);
    colours.push_back(qRgb(level, level, level));
  }
  return colours;
}

// Some writers omit the table and rely on the palette. What is left is then exactly the rows.
bool LacksTable(const DibHeader& header, const DibSource& source, std::size_t at) {
  if (!source.bits.empty() || header.depth > 8 || header.run_length || at > source.info.size()) return false;
  return source.info.size() - at == Stride(header) * static_cast<std::size_t>(header.height);
}

void ReadColours(DibHeader& header, ByteReader& reader, const DibSource& source, std::size_t count, bool core) {
  const bool indices = source.usage == ColorUsage::DIB_PAL_COLORS;
  if (source.usage == ColorUsage::DIB_PAL_INDICES || LacksTable(header, source, reader.At())) {
    header.colours = ColoursWithoutTable(source, count);
    return;
  }
  const std::size_t size = indices ? 2 : (core ? 3 : 4);
  count = reader.Capped(count, size);
  header.colours.reserve(std::min<std::size_t>(count, 256));
  for (std::size_t i = 0; i < count; ++i) {
    QRgb colour = 0xFF000000U;
    if (indices) {
      const std::size_t index = reader.U16();
      if (source.palette != nullptr && index < source.palette->colours.size()) {
        colour = source.palette->colours[index];
      }
    } else {
      colour |= unsigned{reader.U8()} | unsigned{reader.U8()} << 8U;
      colour |= unsigned{reader.U8()} << 16U;
      if (!core) reader.Skip(1);
    }
    if (header.colours.size() < 256) header.colours.push_back(colour);
  }
}

bool IsDepth(int depth) {
  constexpr std::array kDepths{1, 2, 4, 8, 16, 24, 32};
  return std::find(kDepths.begin(), kDepths.end(), depth) != kDepths.end();
}

DibHeader ReadDibHeader(const DibSource& source) {
  DibHeader header;
  ByteReader reader(source.info);
  const std::size_t size = reader.U32();
  const bool core = size == kCoreHeaderSize;
  if ((!core && size < kInfoHeaderSize) || size > source.info.size()) return header;
  const std::int64_t width = core ? reader.U16() : reader.I32();
  std::int64_t height = core ? reader.I16() : reader.I32();
  reader.Skip(2);
  header.depth = reader.U16();
  header.top_down = height < 0;
  height = std::abs(height);
  if (width <= 0 || height <= 0 || width > 0xFFFF || height > 0xFFFF || width * height > kMostPixels) return header;
  if (!IsDepth(header.depth)) return header;
  header.width = static_cast<int>(width);
  header.height = static_cast<int>(height);

  const unsigned compression = core ? 0U : reader.U32();
  reader.Skip(12);
  std::size_t used = core ? 0 : reader.U32();
  reader.Seek(size);
  header.masks = header.depth == 16 ? std::array{0x7C00U, 0x3E0U, 0x1FU} : std::array{0xFF0000U, 0xFF00U, 0xFFU};
  switch (compression) {
    case BI_RGB:
      break;
    case BI_RLE8:
    case BI_RLE4:
      if (header.depth != (compression == BI_RLE8 ? 8 : 4) || header.top_down) return header;
      header.run_length = true;
      break;
    case BI_BITFIELDS:
      if (header.depth != 16 && header.depth != 32) return header;
      // The masks follow a BITMAPINFOHEADER; its successors hold them at the same place.
      reader.Seek(kInfoHeaderSize);
      for (unsigned& mask : header.masks) mask = reader.U32();
      if (size > kInfoHeaderSize) reader.Seek(size);
      break;
    default:
      return header;
  }
  if (header.depth <= 8) {
    const std::size_t most = std::size_t{1} << static_cast<unsigned>(header.depth);
    if (used == 0 || used > most) used = most;
  }
  ReadColours(header, reader, source, used, core);
  header.size = std::min(reader.At(), source.info.size());
  header.valid = true;
  return header;
}

// A field of a 16- or 32-bit pixel, scaled to 8 bits.
unsigned Field(unsigned pixel, unsigned mask) {
  if (mask == 0) return 0;
  const auto shift = static_cast<unsigned>(__builtin_ctz(mask));
  const std::uint64_t most = mask >> shift;
  return static_cast<unsigned>(std::uint64_t{(pixel & mask) >> shift} * 255U / most);
}

QRgb Premultiplied(unsigned pixel) {
  const unsigned alpha = pixel >> 24U;
  // Channels above alpha would overflow when blended.
  const auto channel = [&](unsigned shift) { return std::min(pixel >> shift & 0xFFU, alpha) << shift; };
  return alpha << 24U | channel(16) | channel(8) | channel(0);
}

void ReadRow(const DibHeader& header, const DibSource& source, ByteSpan bytes, QRgb* to) {
  ByteReader reader(bytes);
  const auto width = static_cast<std::size_t>(header.width);
  for (std::size_t x = 0; x < width; ++x) {
    switch (header.depth) {
      case 16: {
        const unsigned pixel = reader.U16();
        to[x] = 0xFF000000U | Field(pixel, header.masks[0]) << 16U | Field(pixel, header.masks[1]) << 8U |
                Field(pixel, header.masks[2]);
        break;
      }
      case 24:
        to[x] = 0xFF000000U | bytes[x * 3] | unsigned{bytes[x * 3 + 1]} << 8U | unsigned{bytes[x * 3 + 2]} << 16U;
        break;
      case 32: {
        const unsigned pixel = reader.U32();
        if (source.alpha) {
          to[x] = Premultiplied(pixel);
        } else {
          to[x] = 0xFF000000U | Field(pixel, header.masks[0]) << 16U | Field(pixel, header.masks[1]) << 8U |
                  Field(pixel, header.masks[2]);
        }
        break;
      }
      default: {
        const auto depth = static_cast<unsigned>(header.depth);
        const std::size_t bit = x * depth;
        const unsigned index = bytes[bit / 8U] >> (8U - depth - bit % 8U) & ((1U << depth) - 1U);
        to[x] = index < header.colours.size() ? header.colours[index] : 0xFF000000U;
      }
    }
  }
}

// Decodes BI_RLE8 and BI_RLE4 into an image, from its last row up. Pixels that the bytes skip keep their colour.
class RunDecoder {
 public:
  RunDecoder(ByteSpan bytes, const DibHeader& header, QImage& image)
      : reader_(bytes), depth_(header.depth), colours_(header.colours), image_(image), y_(image.height() - 1) {}

  void Decode() {
    while (reader_.Left() >= 2 && y_ >= 0) {
      const unsigned count = reader_.U8();
      const unsigned value = reader_.U8();
      if (count > 0) {
        // In RLE4 the pixels of a run alternate between the two nibbles.
        for (unsigned i = 0; i < count && x_ < image_.width(); ++i) Put(depth_ == 8 ? value : Nibble(value, i));
      } else if (!Escape(value)) {
        return;
      }
    }
  }

 private:
  enum EscapeCode : unsigned { RLE_EOL, RLE_EOB, RLE_DELTA };

  static unsigned Nibble(unsigned byte, unsigned i) { return i % 2 == 0 ? byte >> 4U : byte & 0xFU; }

  // `x_` stops at the right edge, so that no number of runs in a row overflows it.
  void Put(unsigned index) {
    if (x_ == image_.width()) return;
    if (index < colours_.size()) reinterpret_cast<QRgb*>(image_.scanLine(y_))[x_] = colours_[index];
    ++x_;
  }

  // False at the end of the bitmap.
  bool Escape(unsigned value) {
    switch (value) {
      case RLE_EOL:
        x_ = 0;
        --y_;
        return true;
      case RLE_EOB:
        return false;
      case RLE_DELTA:
        x_ = std::min(x_ + reader_.U8(), image_.width());
        y_ -= reader_.U8();
        return true;
      default:
        PutLiterally(value);
        return true;
    }
  }

  void PutLiterally(unsigned count) {
    unsigned byte = 0;
    for (unsigned i = 0; i < count; ++i) {
      if (depth_ == 8 || i % 2 == 0) byte = reader_.U8();
      Put(depth_ == 8 ? byte : Nibble(byte, i));
    }
    // Literal runs are padded to two bytes.
    if (reader_.At() % 2 != 0) reader_.Skip(1);
  }

  ByteReader reader_;
  int depth_;
  const std::vector<QRgb>& colours_;
  QImage& image_;
  int x_ = 0;
  int y_;
};

}  // namespace

Dib ReadDib(const DibSource& source) {
  Dib dib;
  DibHeader header = ReadDibHeader(source);
  if (!header.valid) return dib;
  dib.depth = header.depth;
  dib.top_down = header.top_down;
  if (source.rows >= 0) header.height = std::min(header.height, source.rows);
  const ByteSpan bits = source.bits.empty() ? source.info.subspan(header.size) : source.bits;
  const std::size_t stride = Stride(header);
  const std::size_t row_size = (static_cast<std::size_t>(header.width) * static_cast<unsigned>(header.depth) + 7) / 8;
  const auto rows = static_cast<std::size_t>(header.height);
  if (rows == 0) return dib;
  // Two bytes of runs fill at most 255 pixels.
  const bool filled = header.run_length ? static_cast<std::size_t>(header.width) * rows / 256 <= bits.size()
                                        : stride * (rows - 1) + row_size <= bits.size();
  if (!filled) return dib;
  QImage image(header.width, header.height, source.alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  if (image.isNull()) return dib;
  if (header.run_length) {
    image.fill(header.colours.empty() ? 0xFF000000U : header.colours[0]);
    RunDecoder(bits, header, image).Decode();
  } else {
    for (std::size_t y = 0; y < rows; ++y) {
      const std::size_t to = header.top_down ? y : rows - 1 - y;
      ReadRow(header, source, bits.subspan(stride * y), reinterpret_cast<QRgb*>(image.scanLine(static_cast<int>(to))));
    }
  }
  dib.image = image;
  return dib;
}

QImage ReadBitmap16(ByteReader reader, std::size_t rows_at, QRgb zero, QRgb one) {
  reader.Skip(2);
  DibHeader header;
  header.width = reader.I16();
  header.height = reader.I16();
  const int stride = reader.I16();
  reader.Skip(1);
  header.depth = reader.U8();
  header.colours = {zero, one};
  if (header.width <= 0 || header.height <= 0 || stride <= 0) return {};
  if (header.depth != 1 && header.depth != 24 && header.depth != 32) return {};
  header.masks = {0xFF0000, 0xFF00, 0xFF};
  const ByteSpan rows = reader.Piece(rows_at, static_cast<std::size_t>(stride) * static_cast<unsigned>(header.height));
  if (rows.empty() || header.width * header.depth > stride * 8) return {};
  QImage image(header.width, header.height, QImage::Format_RGB32);
  if (image.isNull()) return {};
  for (int y = 0; y < header.height; ++y) {
    ReadRow(header, {}, rows.subspan(static_cast<std::size_t>(y) * static_cast<unsigned>(stride)),
            reinterpret_cast<QRgb*>(image.scanLine(y)));
  }
  return image;
}

}  // namespace quorvale::metafile
