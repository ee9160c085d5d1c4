#include "platform/desktop/metafile/record_bitmaps.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/pictures/dib.h"

namespace quorvale::metafile {
namespace {

// A bitmap is decoded as a whole here, and several may be drawn in a row.
constexpr std::int64_t kMostPixels = std::int64_t{64} << 20U;

constexpr std::array<Pixel, 4> kColourMasks{0xFF0000, 0x00FF00, 0x0000FF, 0};
constexpr Pixel kAlphaMask = 0xFF000000U;

QImage Decode(ByteSpan bits, const DibHeader& header, QImage::Format format) {
  QImage image(header.width, header.height, format);
  if (image.isNull()) return image;
  MemoryBytes bytes(bits);
  const auto rows = OpenDibRows(bytes, 0, header);
  if (!rows->Start(0, header.width, 0)) return {};
  for (int y = 0; y < header.height; ++y) {
    auto* to = reinterpret_cast<Pixel*>(image.scanLine(header.top_down ? y : header.height - 1 - y));
    // Runs may end before the last row: what they leave out has the first colour.
    if (const Pixel* row = rows->Row(y)) {
      std::copy_n(row, header.width, to);
    } else {
      std::fill_n(to, header.width, header.colours.empty() ? kAlphaMask : header.colours[0]);
    }
  }
  return image;
}

}  // namespace

// A record with fewer rows than its bitmap's header says draws nothing.
Dib ReadDib(const DibSource& source) {
  Dib dib;
  auto header = ReadDibHeader(source.info, {.usage = source.usage,
                                            .palette = source.palette != nullptr ? &source.palette->colours : nullptr,
                                            .rows_follow = source.bits.empty()});
  if (!header || std::int64_t{header->width} * header->height > kMostPixels) return dib;
  dib.depth = header->depth;
  dib.top_down = header->top_down;
  if (source.rows >= 0) header->height = std::min(header->height, source.rows);
  const ByteSpan bits = source.bits.empty() ? source.info.subspan(header->size) : source.bits;
  if (header->height == 0 || !header->FitsInto(bits.size())) return dib;
  header->masks[3] = 0;
  if (source.alpha && header->depth == 32) {
    header->masks = kColourMasks;
    header->masks[3] = kAlphaMask;
    header->premultiplied = true;
  }
  dib.image = Decode(bits, *header, source.alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return dib;
}

QImage ReadBitmap16(ByteReader reader, std::size_t rows_at, QRgb zero, QRgb one) {
  reader.Skip(2);
  DibHeader header;
  header.width = reader.I16();
  header.height = reader.I16();
  header.top_down = true;
  const int stride = reader.I16();
  reader.Skip(1);
  header.depth = reader.U8();
  header.colours = {zero, one};
  header.masks = kColourMasks;
  if (header.width <= 0 || header.height <= 0 || stride <= 0) return {};
  if (header.depth != 1 && header.depth != 24 && header.depth != 32) return {};
  header.row_bytes = static_cast<std::size_t>(stride);
  const ByteSpan rows = reader.Piece(rows_at, header.row_bytes * static_cast<std::size_t>(header.height));
  if (rows.empty() || header.width * header.depth > stride * 8) return {};
  return Decode(rows, header, QImage::Format_RGB32);
}

}  // namespace quorvale::metafile
