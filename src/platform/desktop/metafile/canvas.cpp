#include "platform/desktop/metafile/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/desktop/metafile/canvas_paths.h"

namespace quorvale::metafile {
namespace {

// SaveDC beyond that is ignored.
constexpr std::size_t kMostSaved = 250;
constexpr int kHatchSide = 8;
// HS_HORIZONTAL to HS_DIAGCROSS, row by row, with the leftmost pixel in the highest bit.
constexpr std::array<std::array<unsigned, kHatchSide>, 6> kHatches{{
    {0, 0, 0, 0xFF, 0, 0, 0, 0},
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08},
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
}};
// Screen pixels. Pens up to this width have flat ends, and simple ones may be dashed.
constexpr double kThin = 1.5;
// Pixels of the target.
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

// Lengths of dashes and gaps: in pen widths if geometric, otherwise in pixels.
QList<double> Dashes(unsigned style, bool geometric) {
  switch (style) {
    case PS_DASH:
      return geometric ? QList<double>{3, 1} : QList<double>{18, 6};
    case PS_DOT:
      return geometric ? QList<double>{1, 1} : QList<double>{3, 3};
    case PS_DASHDOT:
      return geometric ? QList<double>{3, 1, 1, 1} : QList<double>{9, 6, 3, 6};
    case PS_DASHDOTDOT:
      return geometric ? QList<double>{3, 1, 1, 1, 1, 1} : QList<double>{9, 3, 3, 3, 3, 3};
    case PS_ALTERNATE:
      return {1, 1};
    default:
      return {};
  }
}

}  // namespace

Canvas::Canvas(QImage& target, const CanvasSetting& setting, DeviceState initial)
    : target_(target), setting_(setting), painter_(&target), state_(std::move(initial)) {
  // If the target has several pixels per screen pixel, averaging softens the edges, and without antialiasing adjoining
  // areas leave no seam.
  painter_.setRenderHint(QPainter::Antialiasing, setting.unit < 2);
  painter_.setRenderHint(QPainter::TextAntialiasing);
}

void Canvas::SaveDc() {
  if (saved_.size() < kMostSaved) saved_.push_back(state_);
}

void Canvas::RestoreDc(int saved) {
  const auto count = static_cast<int>(saved_.size());
  const int index = saved < 0 ? count + saved : saved - 1;
  if (index < 0 || index >= count) return;
  state_ = saved_[static_cast<std::size_t>(index)];
  saved_.resize(static_cast<std::size_t>(index), state_);
  clip_changed_ = true;
}

void Canvas::UseClip() {
  if (!clip_changed_) return;
  clip_changed_ = false;
  if (state_.clip) {
    painter_.setClipRegion(*state_.clip);
  } else {
    painter_.setClipping(false);
  }
}

QRect Canvas::Visible(const QRectF& bounds) const {
  const QRectF whole(target_.rect());
  QRect area = bounds.adjusted(-1, -1, 1, 1).intersected(whole).toAlignedRect();
  if (state_.clip) area &= state_.clip->boundingRect();
  return area & target_.rect();
}

bool Canvas::CanUse(unsigned op) {
  if (setting_.over_background || !UsesDestination(op)) return true;
  needs_background_ = true;
  return false;
}

QImage Canvas::MakeLayer(const QRect& area, const DrawFunction& draw) const {
  QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
  if (layer.isNull()) return layer;
  layer.fill(Qt::transparent);
  QPainter painter(&layer);
  painter.translate(-area.topLeft());
  if (state_.clip) painter.setClipRegion(*state_.clip);
  draw(painter);
  return layer;
}

void Canvas::PaintByOp(unsigned op, const QRectF& bounds, const DrawFunction& draw) {
  drawn_ |= bounds;
  if (op == DSTCOPY || !CanUse(op)) return;
  if (op == PATCOPY) {
    UseClip();
    draw(painter_);
    return;
  }
  const QRect area = Visible(bounds);
  if (area.isEmpty()) return;
  Combine(op, area, MakeLayer(area, draw), {});
}

void Canvas::Draw(const QPainterPath& path, PathUse use) {
  if (path_open_) {
    path_.addPath(path);
  } else {
    Paint(path, use);
  }
}

void Canvas::Paint(const QPainterPath& path, PathUse use) {
  if (path.isEmpty()) return;
  QPainterPath area = path;
  area.setFillRule(state_.fill_rule);
  const QBrush brush = use == PathUse::kStroke ? QBrush() : MakeBrush(state_.brush);
  const std::optional<QPen> pen = use == PathUse::kFill ? std::nullopt : MakePen();
  double reach = 0;
  QPainterPath line = path;
  if (pen) {
    reach = pen->widthF() * (pen->joinStyle() == Qt::MiterJoin ? std::max(1.0, pen->miterLimit()) : 1.0);
    // The middle of a line that is an even number of pixels wide lies between two pixels.
    const bool even = std::lround(pen->widthF() / setting_.unit) % 2 == 0;
    if (even) line.translate(-setting_.unit / 2, -setting_.unit / 2);
  }
  const QRectF bounds = path.controlPointRect().adjusted(-reach, -reach, reach, reach);
  // Area and outline in one go: a raster operation must not be applied twice to a pixel.
  PaintByOp(TernaryOfRop2(state_.rop2), bounds, [&](QPainter& painter) {
    if (brush.style() != Qt::NoBrush && CanFill(area, QRectF(target_.rect()))) painter.fillPath(area, brush);
    if (!pen) return;
    const std::optional<QPen> gaps = MakeGapPen(*pen);
    ForEachPiece(line, [&](const QPainterPath& piece) {
      if (gaps) painter.strokePath(piece, *gaps);
      painter.strokePath(piece, *pen);
      return !OutOfTime();
    });
  });
}

double Canvas::PenWidth() const {
  const Pen& pen = state_.pen;
  const QTransform map = ToPixels();
  const double scale = pen.geometric || pen.simple ? std::hypot(map.m11(), map.m12()) : setting_.unit;
  return std::clamp(pen.width * scale, setting_.unit, kWidestPen);
}

std::optional<QPen> Canvas::MakePen() const {
  const Pen& pen = state_.pen;
  if (pen.style == PS_NULL || pen.brush.style == Brush::Style::kNone) return std::nullopt;
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
  if (pen.style == PS_USERSTYLE) {
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
  // Too fine to be seen: a solid line.
  if (sum * width >= setting_.unit) made.setDashPattern(dashes);
  return made;
}

std::optional<QPen> Canvas::MakeGapPen(const QPen& pen) const {
  if (!state_.pen.simple || !state_.opaque_background || pen.dashPattern().isEmpty()) return std::nullopt;
  QPen gaps = pen;
  gaps.setStyle(Qt::SolidLine);
  gaps.setColor(QColor::fromRgb(state_.Colour(state_.background)));
  return gaps;
}

QBrush Canvas::MakeBrush(const Brush& brush) const {
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

}  // namespace quorvale::metafile
