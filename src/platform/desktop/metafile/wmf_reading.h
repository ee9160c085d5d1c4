#pragma once

#include <QPointF>
#include <QRectF>

#include "platform/desktop/metafile/byte_reader.h"

namespace quorvale {

// WMF files hold y before x, and bottom and right before top and left.
inline QPointF WmfPoint(ByteReader& reader) {
  const double y = reader.I16();
  const double x = reader.I16();
  return {x, y};
}

inline QRectF WmfRect(ByteReader& reader) {
  const QPointF end = WmfPoint(reader);
  const QPointF start = WmfPoint(reader);
  return {start, end};
}

}  // namespace quorvale
