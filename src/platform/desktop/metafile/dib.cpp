#include "platform/desktop/metafile/dib.h"

#include <algorithm>
#include <cstdlib>

#include "platform/desktop/metafile/dib_header.h"
#include "platform/desktop/metafile/run_length.h"

namespace quorvale {
namespace {

// A field of a 16- or 32-bit pixel, widened to 8 bits.
unsigned Field(unsigned pixel, unsigned mask) {
  if (mask == 0) return 0;
  const auto shift = static_cast<unsigned>(__builtin_ctz(mask));
  const std::uint64_t most = mask >> shift;
  return static_cast<unsigned>(std::uint64_t{(pixel & mask) >> shift} * 255U / most);
}

QRgb Premultiplied(unsigned pixel) {
  const unsigned alpha = pixel >> 24U;
  // Colours beyond their alpha would overflow when blended.
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
        const unsigned number = bytes[bit / 8U] >> (8U - depth - bit % 8U) & ((1U << depth) - 1U);
        to[x] = number < header.colours.size() ? header.colours[number] : 0xFF000000U;
      }
    }
  }
}

}  // namespace

Dib ReadDib(const DibSource& source) {
  Dib dib;
  DibHeader header = ReadDibHeader(source);
  if (!header.valid) return dib;
  dib.depth = header.depth;
  dib.top_down = header.top_down;
  if (source.rows >= 0) header.height = std::min(header.height, source.rows);
  const ByteSpan bits = source.bits.empty() ? source.info.subspan(header.size) : source.bits;
  const std::size_t stride = RowSize(header);
  const std::size_t row_size = (static_cast<std::size_t>(header.width) * static_cast<unsigned>(header.depth) + 7) / 8;
  const auto rows = static_cast<std::size_t>(header.height);
  if (rows == 0) return dib;
  // A run is two bytes for up to 255 pixels.
  const bool filled = header.run_length ? static_cast<std::size_t>(header.width) * rows / 256 <= bits.size()
                                        : stride * (rows - 1) + row_size <= bits.size();
  if (!filled) return dib;
  QImage image(header.width, header.height, source.alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  if (image.isNull()) return dib;
  if (header.run_length) {
    image.fill(header.colours.empty() ? 0xFF000000U : header.colours[0]);
    ReadRuns(bits, header.depth, header.colours, image);
  } else {
    for (std::size_t y = 0; y < rows; ++y) {
      const std::size_t to = header.top_down ? y : rows - 1 - y;
      ReadRow(header, source, bits.subspan(stride * y), reinterpret_cast<QRgb*>(image.scanLine(static_cast<int>(to))));
    }
  }
  dib.image = image;
  return dib;
}

QImage ReadDeviceBitmap(ByteReader reader, std::size_t rows_at, QRgb zero, QRgb one) {
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

}  // namespace quorvale
