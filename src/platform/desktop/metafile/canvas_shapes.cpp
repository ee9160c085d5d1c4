// Lines, curves and shapes.

#include <QLineF>
#include <algorithm>
#include <cmath>

#include "platform/desktop/metafile/canvas.h"
#include "platform/desktop/metafile/canvas_paths.h"

namespace quorvale::metafile {
namespace {

bool IsTurned(const QTransform& map) { return map.type() > QTransform::TxScale; }

// The angle of a ray from the centre of an ellipse, in degrees counterclockwise, after stretching the ellipse to a
// circle.
double AngleOf(const QRectF& box, QPointF point) {
  const QPointF seen = point - box.center();
  const double x = box.width() > 0 ? seen.x() / box.width() : seen.x();
  const double y = box.height() > 0 ? seen.y() / box.height() : seen.y();
  return QLineF(0, 0, x, y).angle();
}

}  // namespace

QTransform Canvas::ToMiddles() const {
  return ToPixels() * QTransform::fromTranslate(setting_.unit / 2, setting_.unit / 2);
}

QPointF Canvas::Middle(QPointF point) const { return Clamped(ToMiddles().map(point)); }

void Canvas::AddLines(QPainterPath& path, std::span<const QPointF> points) const {
  const QTransform map = ToMiddles();
  for (const QPointF& point : points) path.lineTo(Clamped(map.map(point)));
}

void Canvas::AddCurves(QPainterPath& path, std::span<const QPointF> points) const {
  const QTransform map = ToMiddles();
  const auto at = [&](std::size_t i) { return Clamped(map.map(points[i])); };
  for (std::size_t i = 0; i + 2 < points.size(); i += 3) path.cubicTo(at(i), at(i + 1), at(i + 2));
}

// An open path that already ends at the current position is continued without a move.
void Canvas::StartAtPosition(QPainterPath& path) const {
  const QPointF start = Middle(state_.position);
  if (path.elementCount() == 0 || path.currentPosition() != start) path.moveTo(start);
}

void Canvas::MoveTo(QPointF point) {
  state_.position = point;
  if (path_open_) path_.moveTo(Middle(point));
}

void Canvas::LineTo(QPointF point) { PolylineTo({&point, 1}); }

template <typename Add>
void Canvas::DrawFromPosition(Add add) {
  QPainterPath line;
  QPainterPath& path = path_open_ ? path_ : line;
  StartAtPosition(path);
  add(path);
  if (!path_open_) Paint(line, PathUse::kStroke);
}

void Canvas::PolylineTo(std::span<const QPointF> points) {
  if (points.empty()) return;
  DrawFromPosition([&](QPainterPath& path) { AddLines(path, points); });
  state_.position = points.back();
}

void Canvas::PolyBezierTo(std::span<const QPointF> points) {
  if (points.size() < 3) return;
  DrawFromPosition([&](QPainterPath& path) { AddCurves(path, points); });
  state_.position = points.back();
}

void Canvas::Polyline(std::span<const QPointF> points) {
  const std::size_t count = points.size();
  PolyPolyline(points, {&count, 1});
}

void Canvas::PolyBezier(std::span<const QPointF> points) {
  if (points.size() < 4) return;
  QPainterPath path(Middle(points[0]));
  AddCurves(path, points.subspan(1));
  Draw(path, PathUse::kStroke);
}

void Canvas::PolyDraw(std::span<const QPointF> points, std::span<const std::uint8_t> types) {
  enum : unsigned { PT_CLOSEFIGURE = 1, PT_LINETO = 2, PT_BEZIERTO = 4, PT_MOVETO = 6 };
  QPainterPath path;
  for (std::size_t i = 0; i < std::min(points.size(), types.size()); ++i) {
    const unsigned type = types[i] & ~unsigned{PT_CLOSEFIGURE};
    std::size_t last = i;
    if (type == PT_MOVETO) {
      path.moveTo(Middle(points[i]));
    } else {
      if (path.elementCount() == 0) path.moveTo(Middle(state_.position));
      if (type == PT_LINETO) {
        AddLines(path, points.subspan(i, 1));
      } else if (type == PT_BEZIERTO && i + 2 < points.size() && i + 2 < types.size()) {
        AddCurves(path, points.subspan(i, 3));
        last = i + 2;
      } else {
        break;
      }
    }
    if ((types[last] & PT_CLOSEFIGURE) != 0) path.closeSubpath();
    i = last;
    state_.position = points[i];
  }
  Draw(path, PathUse::kStroke);
}

QPainterPath Canvas::Figures(std::span<const QPointF> points, std::span<const std::size_t> counts, bool closed) const {
  QPainterPath path;
  for (std::size_t count : counts) {
    count = std::min(count, points.size());
    if (count >= 2) {
      path.moveTo(Middle(points[0]));
      AddLines(path, points.subspan(1, count - 1));
      if (closed) path.closeSubpath();
    }
    points = points.subspan(count);
  }
  return path;
}

void Canvas::PolyPolygon(std::span<const QPointF> points, std::span<const std::size_t> counts) {
  Draw(Figures(points, counts, true), PathUse::kBoth);
}

void Canvas::PolyPolyline(std::span<const QPointF> points, std::span<const std::size_t> counts) {
  Draw(Figures(points, counts, false), PathUse::kStroke);
}

Canvas::Box Canvas::MakeBox(const QRectF& box) const {
  const QTransform map = ToMiddles();
  if (IsTurned(map)) return {box.normalized(), map};
  QRectF rect = Clamped(map.mapRect(box.normalized()));
  const double unit = setting_.unit;
  if (!setting_.advanced) rect.setSize({std::max(0.0, rect.width() - unit), std::max(0.0, rect.height() - unit)});
  // Without an outline the area is bounded by the edges of pixels instead of their middles.
  if (state_.pen.style == PS_NULL) rect.translate(-unit / 2, -unit / 2);
  if (state_.pen.style == PS_INSIDEFRAME) {
    const double inset = std::min({(PenWidth() - unit) / 2, rect.width() / 2, rect.height() / 2});
    rect.adjust(inset, inset, -inset, -inset);
  }
  return {rect, {}};
}

void Canvas::Rectangle(const QRectF& box) {
  const Box made = MakeBox(box);
  QPainterPath path;
  path.addRect(made.rect);
  Draw(made.map.map(path), PathUse::kBoth);
}

void Canvas::RoundRect(const QRectF& box, QSizeF corner) {
  const Box made = MakeBox(box);
  const QTransform map = ToPixels();
  const bool turned = IsTurned(map);
  const double across = std::abs(corner.width() * (turned ? 1 : map.m11())) / 2;
  const double down = std::abs(corner.height() * (turned ? 1 : map.m22())) / 2;
  QPainterPath path;
  path.addRoundedRect(made.rect, across, down);
  Draw(made.map.map(path), PathUse::kBoth);
}

void Canvas::Ellipse(const QRectF& box) {
  const Box made = MakeBox(box);
  QPainterPath path;
  path.addEllipse(made.rect);
  Draw(made.map.map(path), PathUse::kBoth);
}

QPainterPath Canvas::ArcPath(ArcKind kind, const QRectF& box, QPointF from, QPointF to) const {
  const Box made = MakeBox(box);
  const QTransform map = ToMiddles();
  const bool turned = IsTurned(map);
  const double start = AngleOf(made.rect, turned ? from : Clamped(map.map(from)));
  const double end = AngleOf(made.rect, turned ? to : Clamped(map.map(to)));
  // A turned arc is drawn in logical units, where a mirroring transform reverses the direction.
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

void Canvas::Arc(ArcKind kind, const QRectF& box, QPointF from, QPointF to) {
  Draw(ArcPath(kind, box, from, to), kind == ArcKind::kOpen ? PathUse::kStroke : PathUse::kBoth);
}

void Canvas::ArcTo(const QRectF& box, QPointF from, QPointF to) {
  const QPainterPath arc = ArcPath(ArcKind::kOpen, box, from, to);
  if (arc.elementCount() == 0) return;
  DrawFromPosition([&](QPainterPath& path) {
    path.lineTo(arc.elementAt(0));
    path.connectPath(arc);
  });
  state_.position = ToMiddles().inverted().map(arc.currentPosition());
}

void Canvas::AngleArc(QPointF centre, double radius, double start, double sweep) {
  const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  QPainterPath arc;
  arc.arcMoveTo(box, start);
  // Further rounds draw nothing new, but the arc ends where its angle says.
  arc.arcTo(box, start, std::abs(sweep) > 360 ? std::fmod(sweep, 360) + std::copysign(360, sweep) : sweep);
  const QTransform map = ToMiddles();
  const QRectF mapped = map.mapRect(box);
  if (arc.elementCount() == 0 || Clamped(mapped) != mapped) return;
  const QPointF end = arc.currentPosition();
  arc = map.map(arc);
  DrawFromPosition([&](QPainterPath& path) {
    path.lineTo(arc.elementAt(0));
    path.connectPath(arc);
  });
  state_.position = end;
}

}  // namespace quorvale::metafile
