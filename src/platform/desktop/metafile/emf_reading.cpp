#include "platform/desktop/metafile/emf_reading.h"

namespace quorvale {

std::vector<QPointF> EmfPoints(ByteReader& reader, std::size_t count, bool small) {
  std::vector<QPointF> points(reader.Capped(count, small ? 4 : 8));
  for (QPointF& point : points) {
    if (small) {
      const double x = reader.I16();
      const double y = reader.I16();
      point = {x, y};
    } else {
      point = EmfPoint(reader);
    }
  }
  return points;
}

QTransform EmfTransform(ByteReader& reader) {
  const double m11 = reader.F32();
  const double m12 = reader.F32();
  const double m21 = reader.F32();
  const double m22 = reader.F32();
  const double dx = reader.F32();
  const double dy = reader.F32();
  return {m11, m12, m21, m22, dx, dy};
}

QRgb EmfColour(ByteReader& reader) {
  const unsigned colour = reader.U32();
  return qRgb(static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8U & 0xFFU),
              static_cast<int>(colour >> 16U & 0xFFU));
}

Region EmfRegion(ByteSpan bytes) {
  ByteReader reader(bytes, 8);
  const std::size_t count = reader.U32();
  reader.Seek(32);
  Region region;
  for (std::size_t i = reader.Capped(count, 16); i > 0; --i) region.rects.push_back(EmfRect(reader));
  return region;
}

}  // namespace quorvale
