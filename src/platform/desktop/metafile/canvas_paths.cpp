// Paths, clipping and regions.

#include "platform/desktop/metafile/canvas_paths.h"

#include <QPainterPathStroker>
#include <algorithm>
#include <cmath>
#include <vector>

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

// A region of more rectangles is replaced by its bounds.
constexpr std::size_t kMostSpans = 500'000;

// The covered pixels of a layer, as a region whose rectangles are in bands from top to bottom, as QRegion needs them.
QRegion CoveredRegion(const QImage& layer, QPoint at) {
  std::vector<QRect> spans;
  std::size_t last_band = 0;
  for (int y = 0; y < layer.height(); ++y) {
    if (spans.size() > kMostSpans) return QRect(at, layer.size());
    const auto* row = reinterpret_cast<const QRgb*>(layer.constScanLine(y));
    const std::size_t band = spans.size();
    for (int x = 0; x < layer.width(); ++x) {
      if (qAlpha(row[x]) < kHalfCovered) continue;
      const int start = x;
      while (x < layer.width() && qAlpha(row[x]) >= kHalfCovered) ++x;
      spans.emplace_back(at.x() + start, at.y() + y, x - start, 1);
    }
    // A row with the same spans as the one above extends that band.
    const std::size_t count = spans.size() - band;
    bool same = count > 0 && count == band - last_band && spans[last_band].bottom() + 1 == at.y() + y;
    for (std::size_t i = 0; same && i < count; ++i) {
      same = spans[last_band + i].left() == spans[band + i].left() &&
             spans[last_band + i].right() == spans[band + i].right();
    }
    if (same) {
      for (std::size_t i = 0; i < count; ++i) spans[last_band + i].setBottom(at.y() + y);
      spans.resize(band);
    } else if (count > 0) {
      last_band = band;
    }
  }
  QRegion region;
  region.setRects(spans.data(), static_cast<int>(spans.size()));
  return region;
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

QRegion Canvas::PathRegion(const QPainterPath& path) const {
  const QRect area = path.controlPointRect().adjusted(-1, -1, 1, 1).intersected(target_.rect()).toAlignedRect();
  if (area.isEmpty() || !CanFill(path, QRectF(area))) return {};
  QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
  if (layer.isNull()) return {};
  layer.fill(Qt::transparent);
  {
    QPainter painter(&layer);
    painter.translate(-area.topLeft());
    painter.fillPath(path, Qt::white);
  }
  return CoveredRegion(layer, area.topLeft());
}

QPainterPath Canvas::RegionPath(const Region& region, const QTransform& map) const {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (const QRectF& rect : region.rects) {
    QPolygonF corners = map.map(QPolygonF(rect.normalized()));
    for (QPointF& corner : corners) corner = Clamped(corner);
    path.addPolygon(corners);
  }
  return path;
}

void Canvas::CombineClip(const QRegion& region, RegionMode mode) {
  const QRegion all = state_.meta_clip.value_or(QRegion(target_.rect()));
  const QRegion now = state_.clip.value_or(all);
  switch (mode) {
    case RGN_AND:
      state_.clip = now & region;
      break;
    case RGN_OR:
      state_.clip = now | region;
      break;
    case RGN_XOR:
      state_.clip = now ^ region;
      break;
    case RGN_DIFF:
      state_.clip = now - region;
      break;
    case RGN_COPY:
      state_.clip = region;
      break;
  }
  if (state_.meta_clip && state_.clip) *state_.clip &= *state_.meta_clip;
  clip_changed_ = true;
}

void Canvas::IntersectClipRect(const QRectF& rect) {
  CombineClip(PathRegion(RegionPath({{rect}}, ToPixels())), RGN_AND);
}

void Canvas::ExcludeClipRect(const QRectF& rect) {
  CombineClip(PathRegion(RegionPath({{rect}}, ToPixels())), RGN_DIFF);
}

void Canvas::OffsetClip(QPointF by) {
  if (!state_.clip) return;
  const QPointF moved = ToPixels().map(by) - ToPixels().map(QPointF(0, 0));
  if (IsFar(moved)) return;
  state_.clip->translate(moved.toPoint());
  // Repeated moves must not overflow.
  const auto reach = static_cast<int>(kFarthest);
  *state_.clip &= QRect(-reach, -reach, 2 * reach, 2 * reach);
  clip_changed_ = true;
}

void Canvas::SetMetaRegion() { state_.meta_clip = state_.clip; }

void Canvas::ResetClip() {
  state_.clip = state_.meta_clip;
  clip_changed_ = true;
}

void Canvas::SelectClip(const Region& region, RegionMode mode, bool logical) {
  CombineClip(PathRegion(RegionPath(region, logical ? ToPixels() : setting_.to_target)), mode);
}

void Canvas::FillRegion(const Region& region, const Brush& brush) {
  const QPainterPath path = RegionPath(region, ToPixels());
  PaintByOp(TernaryOfRop2(state_.rop2), path.controlPointRect(),
            [&](QPainter& painter) { painter.fillPath(path, MakeBrush(brush)); });
}

void Canvas::FrameRegion(const Region& region, const Brush& brush, QSizeF size) {
  const QRegion whole = PathRegion(RegionPath(region, ToPixels()));
  const auto pixels = [](double length) { return static_cast<int>(std::clamp(std::abs(length), 1.0, kFarthest)); };
  const int across = pixels(size.width() * ToPixels().m11());
  const int down = pixels(size.height() * ToPixels().m22());
  const QRegion inner = whole & whole.translated(across, 0) & whole.translated(-across, 0) & whole.translated(0, down) &
                        whole.translated(0, -down);
  QPainterPath path;
  path.addRegion(whole - inner);
  PaintByOp(TernaryOfRop2(state_.rop2), path.controlPointRect(),
            [&](QPainter& painter) { painter.fillPath(path, MakeBrush(brush)); });
}

void Canvas::InvertRegion(const Region& region) {
  const QPainterPath path = RegionPath(region, ToPixels());
  PaintByOp(DSTINVERT, path.controlPointRect(), [&](QPainter& painter) { painter.fillPath(path, Qt::black); });
}

}  // namespace quorvale::metafile
