// Pens and brushes.

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/desktop/metafile/metafile_canvas.h"

namespace quorvale {
namespace {

constexpr int kHatchSide = 8;
// Rows of the hatches, the leftmost pixel in the highest bit.
constexpr std::array<std::array<unsigned, kHatchSide>, 6> kHatches{{
    {0, 0, 0, 0xFF, 0, 0, 0, 0},
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08},
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
}};
// A pen wider than this many pixels counts as wide.
constexpr double kThin = 1.5;
constexpr double kWidestPen = 1e5;

QImage HatchImage(unsigned hatch, QRgb ink, QRgb paper) {
  QImage image(kHatchSide, kHatchSide, QImage::Format_ARGB32_Premultiplied);
  const auto& rows = kHatches[hatch % kHatches.size()];
  for (int y = 0; y < kHatchSide; ++y) {
    for (int x = 0; x < kHatchSide; ++x) {
      image.setPixel(x, y, (rows[static_cast<std::size_t>(y)] << static_cast<unsigned>(x) & 0x80U) != 0 ? ink : paper);
    }
  }
  return image;
}

// In pixels of a thin pen, in widths of a geometric one.
QList<double> Dashes(unsigned style, bool geometric) {
  switch (style) {
    case Pen::kDash:
      return geometric ? QList<double>{3, 1} : QList<double>{18, 6};
    case Pen::kDot:
      return geometric ? QList<double>{1, 1} : QList<double>{3, 3};
    case Pen::kDashDot:
      return geometric ? QList<double>{3, 1, 1, 1} : QList<double>{9, 6, 3, 6};
    case Pen::kDashDotDot:
      return geometric ? QList<double>{3, 1, 1, 1, 1, 1} : QList<double>{9, 3, 3, 3, 3, 3};
    case Pen::kAlternate:
      return {1, 1};
    default:
      return {};
  }
}

}  // namespace

double MetafileCanvas::PenWidth() const {
  const Pen& pen = state_.pen;
  const QTransform map = ToPixels();
  const double scale = pen.geometric || pen.simple ? std::hypot(map.m11(), map.m12()) : setting_.unit;
  return std::clamp(pen.width * scale, setting_.unit, kWidestPen);
}

std::optional<QPen> MetafileCanvas::MakePen() const {
  const Pen& pen = state_.pen;
  if (pen.style == Pen::kNull || pen.brush.style == Brush::Style::kNone) return std::nullopt;
  constexpr std::array kCaps{Qt::RoundCap, Qt::SquareCap, Qt::FlatCap};
  constexpr std::array kJoins{Qt::RoundJoin, Qt::BevelJoin, Qt::MiterJoin};
  const double width = PenWidth();
  const bool thin = width <= kThin * setting_.unit;
  QPen made(MakeBrush(pen.brush), width, Qt::SolidLine, kCaps[pen.cap % kCaps.size()],
            kJoins[pen.join % kJoins.size()]);
  made.setMiterLimit(state_.miter_limit / 2);
  if (thin) {
    made.setCapStyle(Qt::FlatCap);
    made.setJoinStyle(Qt::MiterJoin);
    made.setMiterLimit(1);
  }
  QList<double> dashes;
  double dash_unit = pen.geometric ? width : setting_.unit;
  if (pen.style == Pen::kUser) {
    dashes = QList<double>(pen.dashes.begin(), pen.dashes.end());
    if (pen.geometric) dash_unit = std::hypot(ToPixels().m11(), ToPixels().m12());
  } else if (thin || !pen.simple) {
    dashes = Dashes(pen.style, pen.geometric);
  }
  if (dashes.size() % 2 != 0) dashes.append(dashes);
  double sum = 0;
  for (double& dash : dashes) {
    dash = std::clamp(dash * dash_unit / width, 0.0, kWidestPen);
    sum += dash;
  }
  // Dashes too small to be seen are none.
  if (sum * width >= setting_.unit) made.setDashPattern(dashes);
  return made;
}

std::optional<QPen> MetafileCanvas::GapPen(const QPen& pen) const {
  if (!state_.pen.simple || !state_.opaque_background || pen.dashPattern().isEmpty()) return std::nullopt;
  QPen gaps = pen;
  gaps.setStyle(Qt::SolidLine);
  gaps.setColor(QColor::fromRgb(state_.Colour(state_.background)));
  return gaps;
}

QBrush MetafileCanvas::MakeBrush(const Brush& brush) const {
  QImage image;
  switch (brush.style) {
    case Brush::Style::kNone:
      return {};
    case Brush::Style::kSolid:
      return QColor::fromRgb(state_.Colour(brush.colour));
    case Brush::Style::kHatch:
      image = HatchImage(brush.hatch, state_.Colour(brush.colour),
                         state_.opaque_background ? state_.Colour(state_.background) : 0U);
      break;
    case Brush::Style::kPattern:
      image = brush.pattern;
      if (image.isNull()) return {};
      if (brush.two_colours) {
        const QRgb zero = state_.Colour(state_.text_colour);
        const QRgb one = state_.Colour(state_.background);
        for (int y = 0; y < image.height(); ++y) {
          auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
          std::transform(row, row + image.width(), row, [&](QRgb pixel) { return qRed(pixel) < 128 ? zero : one; });
        }
      }
      break;
  }
  const auto unit = static_cast<int>(setting_.unit);
  QBrush made(image.scaled(image.width() * unit, image.height() * unit));
  const QPointF origin = setting_.to_target.map(state_.brush_origin);
  made.setTransform(
      QTransform::fromTranslate(std::round(origin.x() / unit) * unit, std::round(origin.y() / unit) * unit));
  return made;
}

}  // namespace quorvale
