// Clipping and regions.

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/desktop/metafile/canvas.h"
#include "platform/desktop/metafile/canvas_paths.h"

namespace quorvale::metafile {
namespace {

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
