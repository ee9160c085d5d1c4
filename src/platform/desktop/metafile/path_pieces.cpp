#include "platform/desktop/metafile/path_pieces.h"

#include <algorithm>
#include <cmath>

namespace quorvale {
namespace {

// Rows of pixels that lines cross, added up.
constexpr double kMostCrossings = 2e7;
constexpr int kPieceElements = 4000;

}  // namespace

bool CanFill(const QPainterPath& path, const QRectF& area) {
  double crossings = 0;
  double last = 0;
  for (int i = 0; i < path.elementCount() && crossings <= kMostCrossings; ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    const double y = std::clamp(element.y, area.top(), area.bottom());
    if (!element.isMoveTo()) crossings += 1 + std::abs(y - last);
    last = y;
  }
  return crossings <= kMostCrossings;
}

void ForEachPiece(const QPainterPath& line, const std::function<bool(const QPainterPath&)>& draw) {
  const int count = line.elementCount();
  if (count <= kPieceElements) {
    draw(line);
    return;
  }
  QPainterPath piece;
  for (int i = 0; i < count; ++i) {
    const QPainterPath::Element element = line.elementAt(i);
    if (piece.elementCount() >= kPieceElements) {
      const QPointF end = piece.currentPosition();
      if (!draw(piece)) return;
      piece = QPainterPath(end);
    }
    if (element.isMoveTo()) {
      piece.moveTo(element);
    } else if (element.isLineTo()) {
      piece.lineTo(element);
    } else if (i + 2 < count) {
      piece.cubicTo(element, line.elementAt(i + 1), line.elementAt(i + 2));
      i += 2;
    }
  }
  draw(piece);
}

}  // namespace quorvale
