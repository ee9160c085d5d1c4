// Bitmaps.

#include <algorithm>
#include <cmath>

#include "platform/desktop/metafile/canvas_limits.h"
#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {
namespace {

// From the pixels of `part` to the parallelogram with those corners.
QTransform Placing(const QRectF& part, const QPolygonF& corners) {
  const QPointF across = (corners[1] - corners[0]) / part.width();
  const QPointF down = (corners[2] - corners[0]) / part.height();
  const QPointF start = corners[0] - across * part.x() - down * part.y();
  return {across.x(), across.y(), down.x(), down.y(), start.x(), start.y()};
}

// Draws a part of an image; one that is made much smaller is averaged first.
void DrawImage(QPainter& painter, QTransform place, const QImage& image, const QRectF& part, bool smooth) {
  const QRect inside = part.normalized().toAlignedRect() & image.rect();
  if (inside.isEmpty()) return;
  QImage shown = inside == image.rect() ? image : image.copy(inside);
  place = QTransform::fromTranslate(inside.x(), inside.y()) * place;
  const double across = std::hypot(place.m11(), place.m12());
  const double down = std::hypot(place.m21(), place.m22());
  if (across < 1 || down < 1) {
    const int width = std::max(1, static_cast<int>(std::round(shown.width() * std::min(across, 1.0))));
    const int height = std::max(1, static_cast<int>(std::round(shown.height() * std::min(down, 1.0))));
    const QImage small = shown.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    place = QTransform::fromScale(static_cast<double>(shown.width()) / width,
                                  static_cast<double>(shown.height()) / height) *
            place;
    shown = small;
  }
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
  painter.setTransform(place, true);
  painter.drawImage(0, 0, shown);
  painter.restore();
}

// White where the mask is white, black elsewhere.
bool IsWhite(QRgb pixel) { return qRed(pixel) >= 128; }

}  // namespace

void BlitRequest::SetPart(const QRectF& counted) {
  part = counted.translated(counted.width() < 0 ? 1 : 0, counted.height() < 0 ? 1 : 0);
}

void BlitRequest::SetDibPart(const Dib& dib, const QRectF& counted, int first) {
  source = dib.image;
  SetPart(counted);
  part.moveTop(dib.top_down ? part.y() - first : dib.image.height() + first - part.height() - part.y());
}

void MetafileCanvas::Blit(const BlitRequest& request) {
  QPolygonF corners = request.corners;
  if (corners.isEmpty()) {
    corners << request.target.topLeft() << request.target.topRight() << request.target.bottomLeft();
  }
  corners = ToPixels().map(corners);
  if (std::any_of(corners.begin(), corners.end(), IsFar)) return;
  QPainterPath outline(corners[0]);
  outline.lineTo(corners[1]);
  outline.lineTo(corners[1] + corners[2] - corners[0]);
  outline.lineTo(corners[2]);
  outline.closeSubpath();
  const bool masked = !request.mask.isNull();
  if (!masked && !UsesSource(request.op)) {
    // What black and white take needs no brush.
    PaintBy(request.op, outline.boundingRect(), [&](QPainter& painter) {
      painter.fillPath(outline,
                       state_.brush.style == Brush::Style::kNone ? QBrush(Qt::white) : MakeBrush(state_.brush));
    });
    return;
  }
  drawn_ |= outline.boundingRect();
  if (request.source.isNull() || request.part.width() == 0 || request.part.height() == 0) return;
  const QTransform place = Placing(request.part, corners);
  const QRect area = Visible(outline.boundingRect());
  if (area.isEmpty() || !place.isInvertible()) return;
  if (!masked && request.op == raster_op::kSourceCopy) {
    UseClip();
    painter_.setOpacity(request.opacity);
    DrawImage(painter_, place, request.source, request.part, state_.halftone);
    painter_.setOpacity(1);
  } else if (MayUse(request.op) && (!masked || MayUse(request.masked_op))) {
    BlitBy(request, place, area, outline);
  }
}

void MetafileCanvas::BlitBy(const BlitRequest& request, const QTransform& place, const QRect& area,
                            const QPainterPath& outline) {
  const QImage pattern = Layer(area, [&](QPainter& painter) {
    painter.fillPath(outline, state_.brush.style == Brush::Style::kNone ? QBrush(Qt::white) : MakeBrush(state_.brush));
  });
  const QImage source =
      Layer(area, [&](QPainter& painter) { DrawImage(painter, place, request.source, request.part, state_.halftone); });
  if (pattern.isNull() || source.isNull()) return;
  if (request.mask.isNull()) {
    Combine(request.op, area, pattern, source);
    return;
  }
  const QRectF mask_part(request.mask_at, request.part.size());
  const QTransform mask_place =
      QTransform::fromTranslate(request.part.x() - mask_part.x(), request.part.y() - mask_part.y()) * place;
  const QImage mask =
      Layer(area, [&](QPainter& painter) { DrawImage(painter, mask_place, request.mask, mask_part, false); });
  for (const bool inside : {true, false}) {
    QImage shape = pattern;
    for (int y = 0; y < area.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(shape.scanLine(y));
      const auto* mask_row = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
      for (int x = 0; x < area.width(); ++x) {
        if (IsWhite(mask_row[x]) != inside) row[x] = 0;
      }
    }
    Combine(inside ? request.op : request.masked_op, area, shape, source);
  }
}

}  // namespace quorvale
