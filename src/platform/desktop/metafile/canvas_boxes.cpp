// What is told by a box: rectangles, ellipses and their arcs.

#include <QLineF>
#include <algorithm>
#include <cmath>

#include "platform/desktop/metafile/canvas_limits.h"
#include "platform/desktop/metafile/metafile_canvas.h"

namespace quorvale {
namespace {

bool IsTurned(const QTransform& map) { return map.type() > QTransform::TxScale; }

// The angle of a point seen from the middle of an ellipse that is drawn out to a circle, in degrees
// against the clock.
double AngleOf(const QRectF& box, QPointF point) {
  const QPointF seen = point - box.center();
  const double x = box.width() > 0 ? seen.x() / box.width() : seen.x();
  const double y = box.height() > 0 ? seen.y() / box.height() : seen.y();
  return QLineF(0, 0, x, y).angle();
}

}  // namespace

MetafileCanvas::Box MetafileCanvas::MakeBox(const QRectF& box) const {
  const QTransform map = ToMiddles();
  if (IsTurned(map)) return {box.normalized(), map};
  QRectF rect = Clamped(map.mapRect(box.normalized()));
  const double unit = setting_.unit;
  if (!setting_.advanced) rect.setSize({std::max(0.0, rect.width() - unit), std::max(0.0, rect.height() - unit)});
  // Without an outline the area reaches to the edges of pixels.
  if (state_.pen.style == Pen::kNull) rect.translate(-unit / 2, -unit / 2);
  if (state_.pen.style == Pen::kInsideFrame) {
    const double inset = std::min({(PenWidth() - unit) / 2, rect.width() / 2, rect.height() / 2});
    rect.adjust(inset, inset, -inset, -inset);
  }
  return {rect, {}};
}

void MetafileCanvas::Rectangle(const QRectF& box) {
  const Box made = MakeBox(box);
  QPainterPath path;
  path.addRect(made.rect);
  Draw(made.map.map(path), PathUse::kBoth);
}

void MetafileCanvas::RoundRectangle(const QRectF& box, QSizeF corner) {
  const Box made = MakeBox(box);
  const QTransform map = ToPixels();
  const bool turned = IsTurned(map);
  const double across = std::abs(corner.width() * (turned ? 1 : map.m11())) / 2;
  const double down = std::abs(corner.height() * (turned ? 1 : map.m22())) / 2;
  QPainterPath path;
  path.addRoundedRect(made.rect, across, down);
  Draw(made.map.map(path), PathUse::kBoth);
}

void MetafileCanvas::Ellipse(const QRectF& box) {
  const Box made = MakeBox(box);
  QPainterPath path;
  path.addEllipse(made.rect);
  Draw(made.map.map(path), PathUse::kBoth);
}

QPainterPath MetafileCanvas::ArcPath(ArcKind kind, const QRectF& box, QPointF from, QPointF to) const {
  const Box made = MakeBox(box);
  const QTransform map = ToMiddles();
  const bool turned = IsTurned(map);
  const double start = AngleOf(made.rect, turned ? from : Clamped(map.map(from)));
  const double end = AngleOf(made.rect, turned ? to : Clamped(map.map(to)));
  // Mirroring turns the direction of what is drawn in units.
  const bool clockwise = state_.arcs_clockwise != (turned && map.determinant() < 0);
  double sweep = end - start;
  if (clockwise && sweep >= 0) sweep -= 360;
  if (!clockwise && sweep <= 0) sweep += 360;
  QPainterPath path;
  if (kind == ArcKind::kPie) {
    path.moveTo(made.rect.center());
  } else {
    path.arcMoveTo(made.rect, start);
  }
  path.arcTo(made.rect, start, sweep);
  if (kind != ArcKind::kOpen) path.closeSubpath();
  return made.map.map(path);
}

void MetafileCanvas::Arc(ArcKind kind, const QRectF& box, QPointF from, QPointF to) {
  Draw(ArcPath(kind, box, from, to), kind == ArcKind::kOpen ? PathUse::kStroke : PathUse::kBoth);
}

void MetafileCanvas::ArcTo(const QRectF& box, QPointF from, QPointF to) {
  const QPainterPath arc = ArcPath(ArcKind::kOpen, box, from, to);
  if (arc.elementCount() == 0) return;
  QPainterPath line;
  QPainterPath& path = path_open_ ? path_ : line;
  Continue(path);
  path.lineTo(arc.elementAt(0));
  path.connectPath(arc);
  state_.position = ToMiddles().inverted().map(arc.currentPosition());
  if (!path_open_) Paint(line, PathUse::kStroke);
}

void MetafileCanvas::AngleArc(QPointF centre, double radius, double start, double sweep) {
  const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  QPainterPath arc;
  arc.arcMoveTo(box, start);
  // More than a round adds nothing, but it ends where it says.
  arc.arcTo(box, start, std::abs(sweep) > 360 ? std::fmod(sweep, 360) + std::copysign(360, sweep) : sweep);
  const QTransform map = ToMiddles();
  const QRectF mapped = map.mapRect(box);
  if (arc.elementCount() == 0 || Clamped(mapped) != mapped) return;
  QPainterPath line;
  QPainterPath& path = path_open_ ? path_ : line;
  Continue(path);
  const QPointF end = arc.currentPosition();
  arc = map.map(arc);
  path.lineTo(arc.elementAt(0));
  path.connectPath(arc);
  state_.position = end;
  if (!path_open_) Paint(line, PathUse::kStroke);
}

}  // namespace quorvale
