#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {

unsigned TernaryOfMode(unsigned mode) {
  const unsigned table = (mode >= 1 && mode <= 16 ? mode : 13U) - 1U;
  unsigned op = 0;
  for (unsigned i = 0; i < 8; ++i) {
    const unsigned pattern = i >> 2U;
    const unsigned destination = i & 1U;
    op |= (table >> (pattern * 2 + destination) & 1U) << i;
  }
  return op;
}

QRgb ApplyRasterOp(unsigned op, QRgb pattern, QRgb source, QRgb destination) {
  if (op == raster_op::kSourceCopy) return source | 0xFF000000U;
  if (op == raster_op::kPatternCopy) return pattern | 0xFF000000U;
  QRgb result = 0;
  for (unsigned i = 0; i < 8; ++i) {
    if ((op >> i & 1U) == 0) continue;
    const QRgb p = (i & 4U) != 0 ? pattern : ~pattern;
    const QRgb s = (i & 2U) != 0 ? source : ~source;
    const QRgb d = (i & 1U) != 0 ? destination : ~destination;
    result |= p & s & d;
  }
  return result | 0xFF000000U;
}

}  // namespace quorvale
