// Raster operations, blits, flood fills and gradients.

#include <QLinearGradient>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/desktop/metafile/canvas.h"
#include "platform/desktop/metafile/canvas_paths.h"

namespace quorvale::metafile {
namespace {

// The result is opaque.
QRgb ApplyRasterOp(unsigned op, QRgb pattern, QRgb source, QRgb destination) {
  if (op == SRCCOPY) return source | 0xFF000000U;
  if (op == PATCOPY) return pattern | 0xFF000000U;
  QRgb result = 0;
  for (unsigned i = 0; i < 8; ++i) {
    if ((op >> i & 1U) == 0) continue;
    const QRgb p = (i & 4U) != 0 ? pattern : ~pattern;
    const QRgb s = (i & 2U) != 0 ? source : ~source;
    const QRgb d = (i & 1U) != 0 ? destination : ~destination;
    result |= p & s & d;
  }
  return result | 0xFF000000U;
}

// Maps `part` to the parallelogram with the corners top left, top right and bottom left.
QTransform Placing(const QRectF& part, const QPolygonF& corners) {
  const QPointF across = (corners[1] - corners[0]) / part.width();
  const QPointF down = (corners[2] - corners[0]) / part.height();
  const QPointF start = corners[0] - across * part.x() - down * part.y();
  return {across.x(), across.y(), down.x(), down.y(), start.x(), start.y()};
}

// Draws a part of an image. A smaller copy is averaged first, because the painter only picks pixels.
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
  place *= painter.transform();
  const bool is_scaled = place.type() == QTransform::TxScale;
  const bool across_mirrored = is_scaled && place.m11() < 0;
  const bool down_mirrored = is_scaled && place.m22() < 0;
  if (across_mirrored || down_mirrored) {
    // Where the canvas ends within the first row of a mirrored image, Qt reads other memory.
    shown = shown.mirrored(across_mirrored, down_mirrored);
    place = QTransform(across_mirrored ? -1 : 1, 0, 0, down_mirrored ? -1 : 1, across_mirrored ? shown.width() : 0,
                       down_mirrored ? shown.height() : 0) *
            place;
  }
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
  painter.setTransform(place);
  painter.drawImage(0, 0, shown);
  painter.restore();
}

bool IsWhite(QRgb pixel) { return qRed(pixel) >= 128; }

double Cross(QPointF a, QPointF b) { return a.x() * b.y() - a.y() * b.x(); }

// Finds the pixels that a flood fill reaches, span by span.
class Flood {
 public:
  Flood(const QImage& image, QRgb colour, bool up_to_colour, const QRegion& clip)
      : image_(image),
        colour_(colour | 0xFF000000U),
        up_to_colour_(up_to_colour),
        shape_(image.size(), QImage::Format_ARGB32_Premultiplied) {
    shape_.fill(Qt::transparent);
    // Clipped pixels are marked, so that they are not entered.
    for (const QRect& rect : QRegion(image.rect()) - clip) {
      for (int y = rect.top(); y <= rect.bottom(); ++y) {
        std::fill_n(Row(y) + rect.left(), rect.width(), kOutside);
      }
    }
  }

  QImage From(QPoint start, QRgb ink) {
    std::vector<QPoint> open{start};
    while (!open.empty()) {
      const QPoint at = open.back();
      open.pop_back();
      if (!Enters(at.x(), at.y())) continue;
      int left = at.x();
      while (Enters(left - 1, at.y())) --left;
      int right = at.x();
      while (Enters(right + 1, at.y())) ++right;
      std::fill(Row(at.y()) + left, Row(at.y()) + right + 1, ink);
      for (const int y : {at.y() - 1, at.y() + 1}) {
        for (int x = left; x <= right; ++x) {
          if (Enters(x, y) && !(x < right && Enters(x + 1, y))) open.emplace_back(x, y);
        }
      }
    }
    return shape_;
  }

 private:
  static constexpr QRgb kOutside = 0x01000000U;

  QRgb* Row(int y) { return reinterpret_cast<QRgb*>(shape_.scanLine(y)); }
  bool Enters(int x, int y) {
    if (!image_.valid(x, y) || Row(y)[x] != 0) return false;
    const bool same = reinterpret_cast<const QRgb*>(image_.constScanLine(y))[x] == colour_;
    return same != up_to_colour_;
  }

  const QImage& image_;
  QRgb colour_;
  bool up_to_colour_;
  QImage shape_;
};

}  // namespace

unsigned TernaryOfRop2(unsigned rop2) {
  const unsigned table = (rop2 >= 1 && rop2 <= 16 ? rop2 : 13U) - 1U;
  unsigned op = 0;
  for (unsigned i = 0; i < 8; ++i) {
    const unsigned pattern = i >> 2U;
    const unsigned destination = i & 1U;
    op |= (table >> (pattern * 2 + destination) & 1U) << i;
  }
  return op;
}

void Canvas::Combine(unsigned op, const QRect& area, const QImage& pattern, const QImage& source) {
  if (pattern.isNull()) return;
  for (int y = 0; y < area.height(); ++y) {
    auto* to = reinterpret_cast<QRgb*>(target_.scanLine(area.top() + y)) + area.left();
    const auto* pattern_row = reinterpret_cast<const QRgb*>(pattern.constScanLine(y));
    const auto* from = source.isNull() ? pattern_row : reinterpret_cast<const QRgb*>(source.constScanLine(y));
    for (int x = 0; x < area.width(); ++x) {
      if (qAlpha(pattern_row[x]) >= kHalfCovered && qAlpha(from[x]) >= kHalfCovered) {
        to[x] = ApplyRasterOp(op, pattern_row[x], from[x], to[x]);
      }
    }
  }
}

void BlitRequest::SetPart(const QRectF& counted) {
  part = counted.translated(counted.width() < 0 ? 1 : 0, counted.height() < 0 ? 1 : 0);
}

void BlitRequest::SetDibPart(const Dib& dib, const QRectF& counted, int first_row) {
  source = dib.image;
  SetPart(counted);
  part.moveTop(dib.top_down ? part.y() - first_row : dib.image.height() + first_row - part.height() - part.y());
}

void Canvas::Blit(const BlitRequest& request) {
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
    PaintByOp(request.op, outline.boundingRect(),
              [&](QPainter& painter) { painter.fillPath(outline, MakePatternOfBlit()); });
    return;
  }
  drawn_ |= outline.boundingRect();
  if (request.source.isNull() || request.part.width() == 0 || request.part.height() == 0) return;
  const QTransform place = Placing(request.part, corners);
  const QRect area = Visible(outline.boundingRect());
  if (area.isEmpty() || !place.isInvertible()) return;
  if (!masked && request.op == SRCCOPY) {
    UseClip();
    painter_.setOpacity(request.opacity);
    DrawImage(painter_, place, request.source, request.part, state_.halftone);
    painter_.setOpacity(1);
  } else if (CanUse(request.op) && (!masked || CanUse(request.masked_op))) {
    BlitByOps(request, place, area, outline);
  }
}

QBrush Canvas::MakePatternOfBlit() const {
  return state_.brush.style == Brush::Style::kNone ? QBrush(Qt::white) : MakeBrush(state_.brush);
}

void Canvas::BlitByOps(const BlitRequest& request, const QTransform& place, const QRect& area,
                       const QPainterPath& outline) {
  const QImage pattern = MakeLayer(area, [&](QPainter& painter) { painter.fillPath(outline, MakePatternOfBlit()); });
  const QImage source = MakeLayer(
      area, [&](QPainter& painter) { DrawImage(painter, place, request.source, request.part, state_.halftone); });
  if (pattern.isNull() || source.isNull()) return;
  if (request.mask.isNull()) {
    Combine(request.op, area, pattern, source);
    return;
  }
  const QRectF mask_part(request.mask_at, request.part.size());
  const QTransform mask_place =
      QTransform::fromTranslate(request.part.x() - mask_part.x(), request.part.y() - mask_part.y()) * place;
  const QImage mask =
      MakeLayer(area, [&](QPainter& painter) { DrawImage(painter, mask_place, request.mask, mask_part, false); });
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

void Canvas::SetPixel(QPointF point, ColourReference colour) {
  const QTransform device = setting_.to_target;
  const QSizeF size(std::max(setting_.unit, std::abs(device.m11())), std::max(setting_.unit, std::abs(device.m22())));
  const QRectF pixel(Clamped(ToPixels().map(point)), size);
  PaintByOp(PATCOPY, pixel,
            [&](QPainter& painter) { painter.fillRect(pixel, QColor::fromRgb(state_.Colour(colour))); });
}

void Canvas::FloodFill(QPointF point, ColourReference colour, bool up_to_colour) {
  if (!CanUse(DSTINVERT) || state_.brush.style == Brush::Style::kNone) return;
  const QPointF start = Middle(point);
  const QRegion clip = state_.clip.value_or(QRegion(target_.rect()));
  Flood flood(target_, state_.Colour(colour), up_to_colour, clip);
  const QImage shape = flood.From({static_cast<int>(start.x()), static_cast<int>(start.y())}, qRgb(255, 255, 255));
  QImage ink =
      MakeLayer(target_.rect(), [&](QPainter& painter) { painter.fillRect(target_.rect(), MakeBrush(state_.brush)); });
  Combine(SRCCOPY, target_.rect(), shape, ink);
}

void Canvas::GradientRect(std::span<const GradientVertex, 2> corners, bool vertical) {
  const QRectF box = QRectF(corners[0].at, corners[1].at).normalized();
  QPolygonF outline = ToPixels().map(QPolygonF(box));
  if (std::any_of(outline.begin(), outline.end(), IsFar)) return;
  const bool swapped = vertical ? corners[1].at.y() < corners[0].at.y() : corners[1].at.x() < corners[0].at.x();
  const QPointF start = ToPixels().map(box.topLeft());
  const QPointF end = ToPixels().map(vertical ? box.bottomLeft() : box.topRight());
  QLinearGradient gradient(start, end);
  gradient.setColorAt(0, QColor::fromRgb(corners[swapped ? 1 : 0].colour));
  gradient.setColorAt(1, QColor::fromRgb(corners[swapped ? 0 : 1].colour));
  QPainterPath path;
  path.addPolygon(outline);
  PaintByOp(PATCOPY, path.boundingRect(), [&](QPainter& painter) { painter.fillPath(path, gradient); });
}

void Canvas::GradientTriangle(std::span<const GradientVertex, 3> corners) {
  QPolygonF at;
  for (const GradientVertex& corner : corners) at << Middle(corner.at);
  const double whole = Cross(at[1] - at[0], at[2] - at[0]);
  const QRect area = Visible(at.boundingRect());
  if (whole == 0 || area.isEmpty()) return;
  QImage shape(area.size(), QImage::Format_ARGB32_Premultiplied);
  if (shape.isNull()) return;
  shape.fill(Qt::transparent);
  for (int y = 0; y < area.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(shape.scanLine(y));
    for (int x = 0; x < area.width(); ++x) {
      const QPointF point(area.left() + x + 0.5, area.top() + y + 0.5);
      const double second = Cross(point - at[0], at[2] - at[0]) / whole;
      const double third = Cross(at[1] - at[0], point - at[0]) / whole;
      const double first = 1 - second - third;
      if (first < 0 || second < 0 || third < 0) continue;
      const auto mix = [&](int (*channel)(QRgb)) {
        return static_cast<int>(first * channel(corners[0].colour) + second * channel(corners[1].colour) +
                                third * channel(corners[2].colour));
      };
      row[x] = qRgb(mix(qRed), mix(qGreen), mix(qBlue));
    }
  }
  PaintByOp(PATCOPY, area, [&](QPainter& painter) { painter.drawImage(area.topLeft(), shape); });
}

}  // namespace quorvale::metafile
