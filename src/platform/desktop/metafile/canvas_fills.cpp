// Areas whose colour changes from point to point, and areas found on the target itself.

#include <QLinearGradient>
#include <algorithm>
#include <cmath>

#include "platform/desktop/metafile/canvas_limits.h"
#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {
namespace {

double Cross(QPointF a, QPointF b) { return a.x() * b.y() - a.y() * b.x(); }

// Spreads from a pixel to its neighbours, row by row.
class Flood {
 public:
  Flood(const QImage& image, QRgb colour, bool up_to_colour, const QRegion& clip)
      : image_(image),
        colour_(colour | 0xFF000000U),
        up_to_colour_(up_to_colour),
        shape_(image.size(), QImage::Format_ARGB32_Premultiplied) {
    shape_.fill(Qt::transparent);
    // What is marked is not entered.
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

void MetafileCanvas::FloodFill(QPointF point, ColourReference colour, bool up_to_colour) {
  if (!MayUse(raster_op::kInvertDestination) || state_.brush.style == Brush::Style::kNone) return;
  const QPointF start = Middle(point);
  const QRegion clip = state_.clip.value_or(QRegion(target_.rect()));
  Flood flood(target_, state_.Colour(colour), up_to_colour, clip);
  const QImage shape = flood.From({static_cast<int>(start.x()), static_cast<int>(start.y())}, qRgb(255, 255, 255));
  QImage ink =
      Layer(target_.rect(), [&](QPainter& painter) { painter.fillRect(target_.rect(), MakeBrush(state_.brush)); });
  Combine(raster_op::kSourceCopy, target_.rect(), shape, ink);
}

void MetafileCanvas::Gradient(std::span<const GradientVertex> corners, bool downwards) {
  if (corners.size() < 2) return;
  const QRectF box = QRectF(corners[0].at, corners[1].at).normalized();
  QPolygonF outline = ToPixels().map(QPolygonF(box));
  if (std::any_of(outline.begin(), outline.end(), IsFar)) return;
  const bool swapped = downwards ? corners[1].at.y() < corners[0].at.y() : corners[1].at.x() < corners[0].at.x();
  const QPointF start = ToPixels().map(box.topLeft());
  const QPointF end = ToPixels().map(downwards ? box.bottomLeft() : box.topRight());
  QLinearGradient gradient(start, end);
  gradient.setColorAt(0, QColor::fromRgb(corners[swapped ? 1 : 0].colour));
  gradient.setColorAt(1, QColor::fromRgb(corners[swapped ? 0 : 1].colour));
  QPainterPath path;
  path.addPolygon(outline);
  PaintBy(raster_op::kPatternCopy, path.boundingRect(), [&](QPainter& painter) { painter.fillPath(path, gradient); });
}

void MetafileCanvas::GradientTriangle(std::span<const GradientVertex, 3> corners) {
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
  PaintBy(raster_op::kPatternCopy, area, [&](QPainter& painter) { painter.drawImage(area.topLeft(), shape); });
}

}  // namespace quorvale
