// Lines, polygons and curves.

#include <algorithm>

#include "platform/desktop/metafile/canvas_limits.h"
#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {

QTransform MetafileCanvas::ToMiddles() const {
  return ToPixels() * QTransform::fromTranslate(setting_.unit / 2, setting_.unit / 2);
}

QPointF MetafileCanvas::Middle(QPointF point) const { return Clamped(ToMiddles().map(point)); }

void MetafileCanvas::AddLines(QPainterPath& path, std::span<const QPointF> points) const {
  const QTransform map = ToMiddles();
  for (const QPointF& point : points) path.lineTo(Clamped(map.map(point)));
}

void MetafileCanvas::AddCurves(QPainterPath& path, std::span<const QPointF> points) const {
  const QTransform map = ToMiddles();
  const auto at = [&](std::size_t i) { return Clamped(map.map(points[i])); };
  for (std::size_t i = 0; i + 2 < points.size(); i += 3) path.cubicTo(at(i), at(i + 1), at(i + 2));
}

// A path that is being made goes on where it is; any other line starts at the current position.
void MetafileCanvas::Continue(QPainterPath& path) {
  const QPointF start = Middle(state_.position);
  if (path.elementCount() == 0 || path.currentPosition() != start) path.moveTo(start);
}

void MetafileCanvas::MoveTo(QPointF point) {
  state_.position = point;
  if (path_open_) path_.moveTo(Middle(point));
}

void MetafileCanvas::LineTo(QPointF point) { PolylineTo({&point, 1}); }

void MetafileCanvas::PolylineTo(std::span<const QPointF> points) {
  if (points.empty()) return;
  QPainterPath line;
  QPainterPath& path = path_open_ ? path_ : line;
  Continue(path);
  AddLines(path, points);
  state_.position = points.back();
  if (!path_open_) Paint(line, PathUse::kStroke);
}

void MetafileCanvas::BezierTo(std::span<const QPointF> points) {
  if (points.size() < 3) return;
  QPainterPath line;
  QPainterPath& path = path_open_ ? path_ : line;
  Continue(path);
  AddCurves(path, points);
  state_.position = points.back();
  if (!path_open_) Paint(line, PathUse::kStroke);
}

void MetafileCanvas::Polyline(std::span<const QPointF> points) {
  const std::size_t count = points.size();
  Polylines(points, {&count, 1});
}

void MetafileCanvas::Bezier(std::span<const QPointF> points) {
  if (points.size() < 4) return;
  QPainterPath path(Middle(points[0]));
  AddCurves(path, points.subspan(1));
  Draw(path, PathUse::kStroke);
}

void MetafileCanvas::PolyDraw(std::span<const QPointF> points, std::span<const std::uint8_t> types) {
  enum : unsigned { kClose = 1, kLine = 2, kCurve = 4, kMove = 6 };
  QPainterPath path;
  for (std::size_t i = 0; i < std::min(points.size(), types.size()); ++i) {
    const unsigned type = types[i] & ~unsigned{kClose};
    std::size_t last = i;
    if (type == kMove) {
      path.moveTo(Middle(points[i]));
    } else {
      if (path.elementCount() == 0) path.moveTo(Middle(state_.position));
      if (type == kLine) {
        AddLines(path, points.subspan(i, 1));
      } else if (type == kCurve && i + 2 < points.size() && i + 2 < types.size()) {
        AddCurves(path, points.subspan(i, 3));
        last = i + 2;
      } else {
        break;
      }
    }
    if ((types[last] & kClose) != 0) path.closeSubpath();
    i = last;
    state_.position = points[i];
  }
  Draw(path, PathUse::kStroke);
}

void MetafileCanvas::Polygons(std::span<const QPointF> points, std::span<const std::size_t> counts) {
  QPainterPath path;
  for (std::size_t count : counts) {
    count = std::min(count, points.size());
    if (count >= 2) {
      path.moveTo(Middle(points[0]));
      AddLines(path, points.subspan(1, count - 1));
      path.closeSubpath();
    }
    points = points.subspan(count);
  }
  Draw(path, PathUse::kBoth);
}

void MetafileCanvas::Polylines(std::span<const QPointF> points, std::span<const std::size_t> counts) {
  QPainterPath path;
  for (std::size_t count : counts) {
    count = std::min(count, points.size());
    if (count >= 2) {
      path.moveTo(Middle(points[0]));
      AddLines(path, points.subspan(1, count - 1));
    }
    points = points.subspan(count);
  }
  Draw(path, PathUse::kStroke);
}

void MetafileCanvas::SetPixel(QPointF point, ColourReference colour) {
  const QTransform device = setting_.to_target;
  const QSizeF size(std::max(setting_.unit, std::abs(device.m11())), std::max(setting_.unit, std::abs(device.m22())));
  const QRectF pixel(Clamped(ToPixels().map(point)), size);
  PaintBy(raster_op::kPatternCopy, pixel,
          [&](QPainter& painter) { painter.fillRect(pixel, QColor::fromRgb(state_.Colour(colour))); });
}

}  // namespace quorvale
