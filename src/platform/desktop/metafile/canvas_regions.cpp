// Clipping and regions.

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/desktop/metafile/canvas_limits.h"
#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/path_pieces.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {
namespace {

constexpr int kHalfCovered = 128;
// A region of more pieces is taken for the box around it.
constexpr std::size_t kMostSpans = 500'000;

// The pixels of a layer that are covered, as bands of a region.
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
    // A row like the one above makes its band higher.
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

QRegion MetafileCanvas::PathRegion(const QPainterPath& path) const {
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

QPainterPath MetafileCanvas::RegionPath(const Region& region, const QTransform& map) const {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (const QRectF& rect : region.rects) {
    QPolygonF corners = map.map(QPolygonF(rect.normalized()));
    for (QPointF& corner : corners) corner = Clamped(corner);
    path.addPolygon(corners);
  }
  return path;
}

void MetafileCanvas::ChangeClip(const QRegion& region, ClipMode mode) {
  const QRegion all = state_.kept_clip.value_or(QRegion(target_.rect()));
  const QRegion now = state_.clip.value_or(all);
  switch (mode) {
    case ClipMode::kAnd:
      state_.clip = now & region;
      break;
    case ClipMode::kOr:
      state_.clip = now | region;
      break;
    case ClipMode::kXor:
      state_.clip = now ^ region;
      break;
    case ClipMode::kWithout:
      state_.clip = now - region;
      break;
    case ClipMode::kCopy:
      state_.clip = region;
      break;
  }
  if (state_.kept_clip && state_.clip) *state_.clip &= *state_.kept_clip;
  clip_changed_ = true;
}

void MetafileCanvas::IntersectClip(const QRectF& rect) {
  ChangeClip(PathRegion(RegionPath({{rect}}, ToPixels())), ClipMode::kAnd);
}

void MetafileCanvas::ExcludeClip(const QRectF& rect) {
  ChangeClip(PathRegion(RegionPath({{rect}}, ToPixels())), ClipMode::kWithout);
}

void MetafileCanvas::OffsetClip(QPointF by) {
  if (!state_.clip) return;
  const QPointF moved = ToPixels().map(by) - ToPixels().map(QPointF(0, 0));
  if (IsFar(moved)) return;
  state_.clip->translate(moved.toPoint());
  // However often it moves, it stays within reach.
  const auto reach = static_cast<int>(kFarthest);
  *state_.clip &= QRect(-reach, -reach, 2 * reach, 2 * reach);
  clip_changed_ = true;
}

void MetafileCanvas::KeepClip() { state_.kept_clip = state_.clip; }

void MetafileCanvas::SelectClip(const Region* region, ClipMode mode, bool in_units) {
  if (region == nullptr) {
    state_.clip = state_.kept_clip;
    clip_changed_ = true;
    return;
  }
  ChangeClip(PathRegion(RegionPath(*region, in_units ? ToPixels() : setting_.to_target)), mode);
}

void MetafileCanvas::FillRegion(const Region& region, const Brush& brush) {
  const QPainterPath path = RegionPath(region, ToPixels());
  PaintBy(TernaryOfMode(state_.raster_op), path.controlPointRect(),
          [&](QPainter& painter) { painter.fillPath(path, MakeBrush(brush)); });
}

void MetafileCanvas::FrameRegion(const Region& region, const Brush& brush, QSizeF size) {
  const QRegion whole = PathRegion(RegionPath(region, ToPixels()));
  const auto pixels = [](double length) { return static_cast<int>(std::clamp(std::abs(length), 1.0, kFarthest)); };
  const int across = pixels(size.width() * ToPixels().m11());
  const int down = pixels(size.height() * ToPixels().m22());
  const QRegion inner = whole & whole.translated(across, 0) & whole.translated(-across, 0) & whole.translated(0, down) &
                        whole.translated(0, -down);
  QPainterPath path;
  path.addRegion(whole - inner);
  PaintBy(TernaryOfMode(state_.raster_op), path.controlPointRect(),
          [&](QPainter& painter) { painter.fillPath(path, MakeBrush(brush)); });
}

void MetafileCanvas::InvertRegion(const Region& region) {
  const QPainterPath path = RegionPath(region, ToPixels());
  PaintBy(raster_op::kInvertDestination, path.controlPointRect(),
          [&](QPainter& painter) { painter.fillPath(path, Qt::black); });
}

}  // namespace quorvale
