#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>
#include <vector>

#include "platform/desktop/metafile/byte_reader.h"
#include "platform/desktop/metafile/gdi_objects.h"

namespace quorvale {

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

// No more than there are; numbers of 16 bits or of 32.
std::vector<QPointF> EmfPoints(ByteReader& reader, std::size_t count, bool small);
QTransform EmfTransform(ByteReader& reader);
QRgb EmfColour(ByteReader& reader);
// Rectangles of a region, from `bytes`.
Region EmfRegion(ByteSpan bytes);

}  // namespace quorvale
