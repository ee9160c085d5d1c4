#include <QFont>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/desktop/metafile/canvas.h"
#include "platform/desktop/metafile/canvas_paths.h"

namespace quorvale::metafile {
namespace {

// Pixels. A larger font is this one, scaled.
constexpr double kLargestFont = 300;
constexpr double kLargestScale = 1e4;
constexpr double kDefaultHeight = 16;
// Pixels. Letters that are drawn longer than this in one direction, and flat in the other, crash Qt's cache of letters.
constexpr double kLongestLetter = 256;
// Text wider than its advances by more than the first factor is narrowed, at most to the second.
constexpr double kTooWide = 1.05;
constexpr double kNarrowest = 0.5;
enum TextAlignMode : unsigned {
  TA_UPDATECP = 1,
  TA_RIGHT = 2,
  TA_CENTER = 6,
  TA_BOTTOM = 8,
  TA_BASELINE = 24,
};

QFont MakeFont(const Font& font, double pixels) {
  QFont made(QStringList{font.family, font.stand_in});
  made.setPixelSize(static_cast<int>(std::clamp(std::round(pixels), 1.0, kLargestFont)));
  made.setWeight(static_cast<QFont::Weight>(std::clamp(font.weight <= 0 ? 400 : font.weight, 1, 1000)));
  made.setItalic(font.italic);
  // So that widths are proportional to the size.
  made.setHintingPreference(QFont::PreferNoHinting);
  return made;
}

void DrawLetters(QPainter& painter, const QFont& font, double x, const QString& text) {
  const QTransform map = painter.deviceTransform();
  const double stretch = std::max(std::hypot(map.m11(), map.m12()), std::hypot(map.m21(), map.m22()));
  if (font.pixelSize() * stretch <= kLongestLetter) {
    painter.drawText(QPointF(x, 0), text);
    return;
  }
  QPainterPath letters;
  letters.addText(x, 0, font, text);
  painter.fillPath(letters, painter.pen().color());
}

// The end of the character at `at` together with its combining marks.
qsizetype ClusterEnd(const QString& text, qsizetype at) {
  ++at;
  while (at < text.size() && (text[at].isLowSurrogate() || text[at].isMark())) ++at;
  return at;
}

}  // namespace

// Text in the coordinates of `font`: the baseline starts at 0, 0 and runs to the right.
struct Canvas::TextLayout {
  QFont font;
  double ascent = 0;
  double descent = 0;
  double width = 0;
  double underline = 0;
  double strike_out = 0;
  double stroke = 0;
  // Characters that are placed one by one, or all of the text.
  struct Piece {
    QString text;
    double x = 0;
  };
  std::vector<Piece> pieces;
  // To pixels of the target, without the translation.
  QTransform map;
  // What TA_UPDATECP adds to the current position, in logical units.
  QPointF moves;
  bool valid = false;
};

Canvas::TextLayout Canvas::LayOut(const TextRun& run) const {
  TextLayout layout;
  const Font& font = state_.font;
  const Mapping& mapping = state_.mapping;
  // A mapping mode never mirrors text, whatever the direction of its axes.
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
  // Font coordinates per logical unit along the line.
  double unit = page_x / letter_x / (scale * stretch);
  const double intended = std::accumulate(run.advances.begin(), run.advances.end(), 0.0) * unit;
  const double own = metrics.horizontalAdvance(run.text);
  if (intended > 0 && own > intended * kTooWide) {
    // A stand-in typeface is often wider than the intended one, and its characters would overlap.
    const double narrowed = std::max(intended / own, kNarrowest);
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

void Canvas::Text(const TextRun& run) {
  const QColor background = QColor::fromRgb(state_.Colour(state_.background));
  QPainterPath rect;
  if (run.fill_rect || run.clip_to_rect) rect = RegionPath({{run.rect}}, ToPixels());
  if (run.fill_rect) {
    PaintByOp(PATCOPY, rect.boundingRect(), [&](QPainter& painter) { painter.fillPath(rect, background); });
  }
  if (run.text.isEmpty()) return;
  const TextLayout layout = LayOut(run);
  if (!layout.valid) return;
  const bool moves = (state_.text_align & TA_UPDATECP) != 0;
  const QPointF start = ToPixels().map(moves ? state_.position : run.at);
  if (IsFar(start)) return;

  double x = 0;
  if ((state_.text_align & TA_CENTER) == TA_CENTER) {
    x = -layout.width / 2;
  } else if ((state_.text_align & TA_CENTER) == TA_RIGHT) {
    x = -layout.width;
    if (moves) state_.position -= layout.moves;
  } else if (moves) {
    state_.position += layout.moves;
  }
  double y = layout.ascent;
  if ((state_.text_align & TA_BASELINE) == TA_BASELINE) {
    y = 0;
  } else if ((state_.text_align & TA_BASELINE) == TA_BOTTOM) {
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
  // Characters may extend beyond their cell.
  const QRectF reach = map.mapRect(cell.adjusted(-layout.ascent, -layout.ascent, layout.ascent, layout.ascent));
  PaintByOp(PATCOPY, reach, [&](QPainter& painter) {
    painter.save();
    if (run.clip_to_rect) painter.setClipPath(rect, Qt::IntersectClip);
    painter.setTransform(map, true);
    if (state_.opaque_background && !run.fill_rect) painter.fillRect(cell, background);
    const QColor colour = QColor::fromRgb(state_.Colour(state_.text_colour));
    painter.setPen(colour);
    painter.setFont(layout.font);
    for (const auto& piece : layout.pieces) {
      if (OutOfTime()) break;
      DrawLetters(painter, layout.font, piece.x, piece.text);
    }
    const auto line = [&](double at) { painter.fillRect(QRectF(0, at, layout.width, layout.stroke), colour); };
    if (state_.font.underline) line(layout.underline);
    if (state_.font.strike_out) line(layout.strike_out);
    painter.restore();
  });
}

}  // namespace quorvale::metafile
