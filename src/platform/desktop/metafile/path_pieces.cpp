#include "platform/desktop/metafile/path_pieces.h"

#include <algorithm>
#include <cmath>

namespace quorvale {
namespace {

// Rows of pixels that lines cross, added up.
constexpr double kMostCrossings = 2e7;
constexpr int kPieceElements = 4000;
// Pixels. Dashes are counted by the length.
constexpr double kPieceLength = 1e6;

double Distance(QPointF from, QPointF to) { return (to - from).manhattanLength(); }

// That of the control points.
double LengthOf(const QPainterPath& line) {
  double length = 0;
  for (int i = 1; i < line.elementCount(); ++i) {
    if (!line.elementAt(i).isMoveTo()) length += Distance(line.elementAt(i - 1), line.elementAt(i));
  }
  return length;
}

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
  if (count <= kPieceElements && LengthOf(line) <= kPieceLength) {
    draw(line);
    return;
  }
  QPainterPath piece;
  double length = 0;
  for (int i = 0; i < count; ++i) {
    const QPainterPath::Element element = line.elementAt(i);
    if (piece.elementCount() >= kPieceElements || length > kPieceLength) {
      const QPointF end = piece.currentPosition();
      if (!draw(piece)) return;
      piece = QPainterPath(end);
      length = 0;
    }
    if (!element.isMoveTo()) length += Distance(piece.currentPosition(), element);
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
