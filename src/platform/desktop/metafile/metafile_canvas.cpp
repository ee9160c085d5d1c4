#include "platform/desktop/metafile/metafile_canvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop/metafile/path_pieces.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {
namespace {

// More than any file needs.
constexpr std::size_t kMostSaved = 250;
constexpr int kHalfCovered = 128;

}  // namespace

MetafileCanvas::MetafileCanvas(QImage& target, const CanvasSetting& setting, DeviceState initial)
    : target_(target), setting_(setting), painter_(&target), state_(std::move(initial)) {
  // With several pixels of the target to one of the screen, edges come out soft all the same, and areas
  // that meet leave no seam.
  painter_.setRenderHint(QPainter::Antialiasing, setting.unit < 2);
  painter_.setRenderHint(QPainter::TextAntialiasing);
}

void MetafileCanvas::Save() {
  if (saved_.size() < kMostSaved) saved_.push_back(state_);
}

void MetafileCanvas::Restore(int which) {
  const auto count = static_cast<int>(saved_.size());
  const int index = which < 0 ? count + which : which - 1;
  if (index < 0 || index >= count) return;
  state_ = saved_[static_cast<std::size_t>(index)];
  saved_.resize(static_cast<std::size_t>(index), state_);
  clip_changed_ = true;
}

void MetafileCanvas::UseClip() {
  if (!clip_changed_) return;
  clip_changed_ = false;
  if (state_.clip) {
    painter_.setClipRegion(*state_.clip);
  } else {
    painter_.setClipping(false);
  }
}

QRect MetafileCanvas::Visible(const QRectF& bounds) const {
  const QRectF whole(target_.rect());
  QRect area = bounds.adjusted(-1, -1, 1, 1).intersected(whole).toAlignedRect();
  if (state_.clip) area &= state_.clip->boundingRect();
  return area & target_.rect();
}

bool MetafileCanvas::MayUse(unsigned op) {
  if (setting_.over_background || !UsesDestination(op)) return true;
  needs_background_ = true;
  return false;
}

QImage MetafileCanvas::Layer(const QRect& area, const DrawFunction& draw) {
  QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
  if (layer.isNull()) return layer;
  layer.fill(Qt::transparent);
  QPainter painter(&layer);
  painter.translate(-area.topLeft());
  if (state_.clip) painter.setClipRegion(*state_.clip);
  draw(painter);
  return layer;
}

void MetafileCanvas::PaintBy(unsigned op, const QRectF& bounds, const DrawFunction& draw) {
  drawn_ |= bounds;
  if (op == raster_op::kNothing || !MayUse(op)) return;
  if (op == raster_op::kPatternCopy) {
    UseClip();
    draw(painter_);
    return;
  }
  const QRect area = Visible(bounds);
  if (area.isEmpty()) return;
  Combine(op, area, Layer(area, draw), {});
}

void MetafileCanvas::Combine(unsigned op, const QRect& area, const QImage& shape, const QImage& source) {
  if (shape.isNull()) return;
  for (int y = 0; y < area.height(); ++y) {
    auto* to = reinterpret_cast<QRgb*>(target_.scanLine(area.top() + y)) + area.left();
    const auto* pattern = reinterpret_cast<const QRgb*>(shape.constScanLine(y));
    const auto* from = source.isNull() ? pattern : reinterpret_cast<const QRgb*>(source.constScanLine(y));
    for (int x = 0; x < area.width(); ++x) {
      if (qAlpha(pattern[x]) >= kHalfCovered && qAlpha(from[x]) >= kHalfCovered) {
        to[x] = ApplyRasterOp(op, pattern[x], from[x], to[x]);
      }
    }
  }
}

void MetafileCanvas::Draw(const QPainterPath& path, PathUse use) {
  if (path_open_) {
    path_.addPath(path);
  } else {
    Paint(path, use);
  }
}

void MetafileCanvas::Paint(const QPainterPath& path, PathUse use) {
  if (path.isEmpty()) return;
  QPainterPath area = path;
  area.setFillRule(state_.fill_rule);
  const QBrush brush = use == PathUse::kStroke ? QBrush() : MakeBrush(state_.brush);
  const std::optional<QPen> pen = use == PathUse::kFill ? std::nullopt : MakePen();
  double reach = 0;
  QPainterPath line = path;
  if (pen) {
    reach = pen->widthF() * (pen->joinStyle() == Qt::MiterJoin ? std::max(1.0, pen->miterLimit()) : 1.0);
    // A line of an even number of pixels has its middle between two of them.
    const bool even = std::lround(pen->widthF() / setting_.unit) % 2 == 0;
    if (even) line.translate(-setting_.unit / 2, -setting_.unit / 2);
  }
  const QRectF bounds = path.controlPointRect().adjusted(-reach, -reach, reach, reach);
  // At once, since an operation must not meet a pixel twice.
  PaintBy(TernaryOfMode(state_.raster_op), bounds, [&](QPainter& painter) {
    if (brush.style() != Qt::NoBrush && CanFill(area, QRectF(target_.rect()))) painter.fillPath(area, brush);
    if (!pen) return;
    const std::optional<QPen> gaps = GapPen(*pen);
    ForEachPiece(line, [&](const QPainterPath& piece) {
      if (gaps) painter.strokePath(piece, *gaps);
      painter.strokePath(piece, *pen);
      return !OutOfTime();
    });
  });
}

}  // namespace quorvale
