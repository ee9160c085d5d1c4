// Text.

#include <QFont>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/desktop/metafile/canvas_limits.h"
#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/raster_op.h"

namespace quorvale {
namespace {

// Pixels. Letters above are drawn from outlines anyway, and scaled.
constexpr double kLargestFont = 300;
constexpr double kLargestScale = 1e4;
constexpr double kDefaultHeight = 16;
// By how much letters may exceed the space that they are told, and how far they are narrowed then.
constexpr double kTooWide = 1.05;
constexpr double kNarrowest = 0.5;
enum Align : unsigned {
  kMovesPosition = 1,
  kRight = 2,
  kCentre = 6,
  kBottom = 8,
  kBaseline = 24,
};

QFont MakeFont(const Font& font, double pixels) {
  QFont made(QStringList{font.family, font.stand_in});
  made.setPixelSize(static_cast<int>(std::clamp(std::round(pixels), 1.0, kLargestFont)));
  made.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight <= 0 ? 400 : font.weight, 1, 1000)));
  made.setItalic(font.italic);
  // Widths then are the same at every size.
  made.setHintingPreference(QFont::PreferNoHinting);
  return made;
}

// Everything that stands on one place: a character with what belongs to it.
qsizetype ClusterEnd(const QString& text, qsizetype at) {
  ++at;
  while (at < text.size() && (text[at].isLowSurrogate() || text[at].isMark())) ++at;
  return at;
}

}  // namespace

// Text as the font's own coordinates see it: the baseline starts at 0, 0 and runs to the right.
struct MetafileCanvas::TextLayout {
  QFont font;
  double ascent = 0;
  double descent = 0;
  double width = 0;
  double underline = 0;
  double strike_out = 0;
  double stroke = 0;
  // Where each piece of the text begins.
  struct Piece {
    QString text;
    double x = 0;
  };
  std::vector<Piece> pieces;
  // To the target, without the place.
  QTransform map;
  // What the current position moves by, in units.
  QPointF moves;
  bool valid = false;
};

MetafileCanvas::TextLayout MetafileCanvas::LayOut(const TextRun& run) const {
  TextLayout layout;
  const Font& font = state_.font;
  const Mapping& mapping = state_.mapping;
  // Letters are never mirrored by the direction in which units count.
  const double page_y = std::abs(mapping.PageY());
  const double page_x = std::abs(mapping.PageX());
  const double letter_x = setting_.advanced ? page_x : page_y;
  QTransform device = mapping.World() * QTransform::fromScale(letter_x, page_y) * setting_.to_target;
  device = QTransform(device.m11(), device.m12(), device.m21(), device.m22(), 0, 0);
  const double height = font.height == 0 ? kDefaultHeight : font.height;
  const double pixels = std::abs(height) * std::hypot(device.m21(), device.m22());
  if (!(pixels > 0.1 && pixels < kFarthest)) return layout;
  layout.font = MakeFont(font, pixels);
  const QFontMetricsF metrics(layout.font);
  const double own_height = height > 0 ? metrics.ascent() + metrics.descent() : layout.font.pixelSize();
  const double scale = std::abs(height) / own_height;
  double stretch = 1;
  if (font.width != 0 && metrics.averageCharWidth() > 0) {
    stretch = std::abs(font.width) * page_x / letter_x / (metrics.averageCharWidth() * scale);
  }
  if (!(scale * stretch > 1 / kLargestScale && scale < kLargestScale && scale * stretch < kLargestScale)) return layout;
  layout.ascent = metrics.ascent();
  layout.descent = metrics.descent();
  layout.underline = metrics.underlinePos();
  layout.strike_out = -metrics.strikeOutPos();
  layout.stroke = metrics.lineWidth();
  // From units along the line to the font's own.
  double unit = page_x / letter_x / (scale * stretch);
  const double told = std::accumulate(run.advances.begin(), run.advances.end(), 0.0) * unit;
  const double own = metrics.horizontalAdvance(run.text);
  if (told > 0 && own > told * kTooWide) {
    // A typeface that stands in for another is often wider, and its letters would lie on each other.
    const double narrowed = std::max(told / own, kNarrowest);
    stretch *= narrowed;
    unit /= narrowed;
  }
  layout.map = QTransform::fromScale(scale * stretch, scale) * QTransform().rotate(-font.escapement / 10) * device;
  double x = 0;
  const bool own_widths = run.advances.empty() && state_.extra_space == 0 && state_.justification == 0;
  if (own_widths) {
    layout.pieces.push_back({run.text, 0});
    x = own;
  } else {
    for (qsizetype at = 0; at < run.text.size();) {
      const qsizetype end = ClusterEnd(run.text, at);
      const QString piece = run.text.mid(at, end - at);
      layout.pieces.push_back({piece, x});
      if (run.advances.empty()) {
        x += metrics.horizontalAdvance(piece) + state_.extra_space * unit;
        if (piece == u" ") x += state_.justification * unit;
      }
      for (; at < end; ++at) {
        if (static_cast<std::size_t>(at) < run.advances.size()) x += run.advances[static_cast<std::size_t>(at)] * unit;
      }
    }
  }
  if (!(std::abs(x) < kFarthest)) return layout;
  layout.width = x;
  layout.moves = QTransform().rotate(-font.escapement / 10).map(QPointF(x / unit, 0));
  layout.valid = layout.map.isInvertible();
  return layout;
}

void MetafileCanvas::Text(const TextRun& run) {
  const QColor background = QColor::fromRgb(state_.Colour(state_.background));
  QPainterPath rect;
  if (run.fill_rect || run.clip_to_rect) rect = RegionPath({{run.rect}}, ToPixels());
  if (run.fill_rect) {
    PaintBy(raster_op::kPatternCopy, rect.boundingRect(),
            [&](QPainter& painter) { painter.fillPath(rect, background); });
  }
  if (run.text.isEmpty()) return;
  const TextLayout layout = LayOut(run);
  if (!layout.valid) return;
  const bool moves = (state_.text_align & kMovesPosition) != 0;
  const QPointF start = ToPixels().map(moves ? state_.position : run.at);
  if (IsFar(start)) return;

  double x = 0;
  if ((state_.text_align & kCentre) == kCentre) {
    x = -layout.width / 2;
  } else if ((state_.text_align & kCentre) == kRight) {
    x = -layout.width;
    if (moves) state_.position -= layout.moves;
  } else if (moves) {
    state_.position += layout.moves;
  }
  double y = layout.ascent;
  if ((state_.text_align & kBaseline) == kBaseline) {
    y = 0;
  } else if ((state_.text_align & kBaseline) == kBottom) {
    y = -layout.descent;
  }
  const QTransform map = QTransform::fromTranslate(x, y) * layout.map * QTransform::fromTranslate(start.x(), start.y());
  const QRectF cell(0, -layout.ascent, layout.width, layout.ascent + layout.descent);

  if (path_open_) {
    QPainterPath letters;
    for (const auto& piece : layout.pieces) letters.addText(piece.x, 0, layout.font, piece.text);
    path_.addPath(map.map(letters));
    return;
  }
  // Letters may reach out of their cell.
  const QRectF reach = map.mapRect(cell.adjusted(-layout.ascent, -layout.ascent, layout.ascent, layout.ascent));
  PaintBy(raster_op::kPatternCopy, reach, [&](QPainter& painter) {
    painter.save();
    if (run.clip_to_rect) painter.setClipPath(rect, Qt::IntersectClip);
    painter.setTransform(map, true);
    if (state_.opaque_background && !run.fill_rect) painter.fillRect(cell, background);
    const QColor colour = QColor::fromRgb(state_.Colour(state_.text_colour));
    painter.setPen(colour);
    painter.setFont(layout.font);
    for (const auto& piece : layout.pieces) {
      if (OutOfTime()) break;
      painter.drawText(QPointF(piece.x, 0), piece.text);
    }
    const auto line = [&](double at) { painter.fillRect(QRectF(0, at, layout.width, layout.stroke), colour); };
    if (state_.font.underline) line(layout.underline);
    if (state_.font.strike_out) line(layout.strike_out);
    painter.restore();
  });
}

}  // namespace quorvale
