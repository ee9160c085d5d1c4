#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>
#include <vector>

#include "base/byte_reader.h"
#include "platform/desktop/metafile/objects.h"
#include "platform/desktop/metafile/record_bitmaps.h"

// Readers of the values that records consist of. What lies beyond the end of a record reads as 0.

namespace quorvale::metafile {

// What drawing records of EMF begin with: the bounds of what they draw. They are not used.
inline constexpr std::size_t kBoundsSize = 16;

// 16-bit coordinates, x first: the points of polygons in both formats. No more than the record holds.
inline std::vector<QPointF> PointsOf16Bits(ByteReader& reader, std::size_t count) {
  std::vector<QPointF> points(reader.Capped(count, 4));
  for (QPointF& point : points) {
    const double x = reader.I16();
    const double y = reader.I16();
    point = {x, y};
  }
  return points;
}

// WMF stores the parameters of a function in reverse order: y before x, bottom and right before top
// and left.
inline QPointF WmfPoint(ByteReader& reader) {
  const double y = reader.I16();
  const double x = reader.I16();
  return {x, y};
}

inline QSizeF WmfSize(ByteReader& reader) {
  const QPointF size = WmfPoint(reader);
  return {size.x(), size.y()};
}

inline QRectF WmfRect(ByteReader& reader) {
  const QPointF end = WmfPoint(reader);
  const QPointF start = WmfPoint(reader);
  return {start, end};
}

inline QPointF EmfPoint(ByteReader& reader) {
  const double x = reader.I32();
  const double y = reader.I32();
  return {x, y};
}

inline QSizeF EmfSize(ByteReader& reader) {
  const QPointF size = EmfPoint(reader);
  return {size.x(), size.y()};
}

inline QRectF EmfRect(ByteReader& reader) {
  const QPointF start = EmfPoint(reader);
  const QPointF end = EmfPoint(reader);
  return {start, end};
}

// A position and a size.
inline QRectF EmfPlace(ByteReader& reader) {
  const QPointF at = EmfPoint(reader);
  return {at, EmfSize(reader)};
}

inline std::vector<QPointF> PointsOf32Bits(ByteReader& reader, std::size_t count) {
  std::vector<QPointF> points(reader.Capped(count, 8));
  for (QPointF& point : points) point = EmfPoint(reader);
  return points;
}

// XFORM.
inline QTransform EmfTransform(ByteReader& reader) {
  const double m11 = reader.F32();
  const double m12 = reader.F32();
  const double m21 = reader.F32();
  const double m22 = reader.F32();
  const double dx = reader.F32();
  const double dy = reader.F32();
  return {m11, m12, m21, m22, dx, dy};
}

// RGNDATA: a header of 32 bytes and rectangles.
inline Region EmfRegion(ByteSpan bytes) {
  ByteReader reader(bytes, 8);
  const std::size_t count = reader.U32();
  reader.Seek(32);
  Region region;
  for (std::size_t i = reader.Capped(count, 16); i > 0; --i) region.rects.push_back(EmfRect(reader));
  return region;
}

// Where in its record a bitmap is.
struct EmfBitmap {
  std::size_t info_at = 0;
  std::size_t info_size = 0;
  std::size_t bits_at = 0;
  std::size_t bits_size = 0;
  ColorUsage usage = ColorUsage::DIB_RGB_COLORS;

  // Four numbers in a row: offset and size of the header, offset and size of the bits.
  void ReadPlace(ByteReader& reader) {
    info_at = reader.U32();
    info_size = reader.U32();
    bits_at = reader.U32();
    bits_size = reader.U32();
  }
  bool Exists() const { return info_size != 0; }
  // `reader` covers the record. Null image if the bitmap is damaged or absent.
  Dib Read(const ByteReader& reader, const Palette* palette, bool alpha = false, int rows = -1) const {
    return ReadDib({.info = reader.Piece(info_at, info_size),
                    .bits = reader.Piece(bits_at, bits_size),
                    .usage = usage,
                    .palette = palette,
                    .alpha = alpha,
                    .rows = rows});
  }
};

}  // namespace quorvale::metafile
