#include "platform/desktop/metafile/canvas_paths.h"

#include <QPainterPathStroker>

#include "platform/desktop/metafile/canvas.h"

namespace quorvale::metafile {
namespace {

// The sum of the pixel rows that the lines cross.
constexpr double kMostCrossings = 2e7;
constexpr int kPieceElements = 4000;
// Pixels. A dashed line takes time by its length.
constexpr double kPieceLength = 1e6;

double Distance(QPointF from, QPointF to) { return (to - from).manhattanLength(); }

// Of a curve, the length of its control polygon.
double LengthOf(const QPainterPath& line) {
  double length = 0;
  for (int i = 1; i < line.elementCount(); ++i) {
    if (!line.elementAt(i).isMoveTo()) length += Distance(line.elementAt(i - 1), line.elementAt(i));
  }
  return length;
}

// Closes every figure.
QPainterPath Closed(const QPainterPath& path) {
  QPainterPath closed;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    if (element.isMoveTo()) {
      closed.closeSubpath();
      closed.moveTo(element);
    } else if (element.isLineTo()) {
      closed.lineTo(element);
    } else if (i + 2 < path.elementCount()) {
      closed.cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
      i += 2;
    }
  }
  closed.closeSubpath();
  return closed;
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

void Canvas::BeginPath() {
  path_ = {};
  path_open_ = true;
}

void Canvas::EndPath() { path_open_ = false; }

void Canvas::AbortPath() {
  path_ = {};
  path_open_ = false;
}

void Canvas::CloseFigure() {
  if (!path_open_ || path_.isEmpty()) return;
  path_.closeSubpath();
  state_.position = ToMiddles().inverted().map(path_.currentPosition());
}

void Canvas::FlattenPath() {
  QPainterPath flat;
  for (const QPolygonF& polygon : path_.toSubpathPolygons()) flat.addPolygon(polygon);
  path_ = flat;
}

// A dashed pen makes many more elements than the path has points, hence the limit.
void Canvas::WidenPath() {
  constexpr int kMostElements = 1'000'000;
  const std::optional<QPen> pen = MakePen();
  if (!pen) return;
  const QPainterPathStroker stroker(*pen);
  QPainterPath wide;
  ForEachPiece(path_, [&](const QPainterPath& piece) {
    wide.addPath(stroker.createStroke(piece));
    return !OutOfTime() && wide.elementCount() < kMostElements;
  });
  path_ = wide;
}

void Canvas::UsePath(PathUse use) {
  // StrokeAndFillPath closes open figures.
  const QPainterPath path = use == PathUse::kBoth ? Closed(path_) : path_;
  AbortPath();
  Paint(path, use);
}

void Canvas::SelectClipPath(RegionMode mode) {
  QPainterPath path = path_;
  AbortPath();
  path.setFillRule(state_.fill_rule);
  CombineClip(PathRegion(path), mode);
}

}  // namespace quorvale::metafile
