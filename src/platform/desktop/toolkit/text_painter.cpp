#include "platform/desktop/toolkit/text_painter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/common/typeface.h"
#include "platform/desktop/toolkit/pixels.h"

namespace quorvale {
namespace {

QFont ToQtFont(const Font& named, int pixels) {
  QFont font;
  const bool is_serif = IsSerif(named);
  if (is_serif) {
    font.setFamilies({"Nimbus Roman", "Liberation Serif", "Tinos", "FreeSerif", "DejaVu Serif", "Noto Serif"});
  } else {
    font.setFamilies({"DejaVu Sans", "Liberation Sans", "Nimbus Sans", "Noto Sans"});
  }
  font.setStyleHint(is_serif ? QFont::Serif : QFont::SansSerif,
                    QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  // Hinting would snap letters to whole pixels, so that sizes would not follow the scale.
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(pixels);
  return font;
}

// One line of text. Qt has fonts in whole pixels only; scaling the painter gives the sizes between.
class Line {
 public:
  Line(const std::string& text, const Font& font, double pixels)
      : text_(QString::fromStdString(text)),
        font_(ToQtFont(font, std::max(1, static_cast<int>(std::lround(pixels))))),
        metrics_(font_),
        factor_(pixels / font_.pixelSize()) {}

  int Width() const { return static_cast<int>(std::ceil(metrics_.horizontalAdvance(text_) * factor_)); }
  int Height() const { return static_cast<int>(std::ceil(metrics_.height() * factor_)); }

  // The pixels that drawing may change.
  QRect Ink(int left, int top) const {
    // Qt's box may end before the line does, where several letters have one glyph, as those of a flag.
    const QRectF line(0, -metrics_.ascent(), metrics_.horizontalAdvance(text_), metrics_.height());
    const QRectF box = metrics_.boundingRect(text_) | line;
    const QRectF scaled(box.topLeft() * factor_, box.size() * factor_);
    return scaled.translated(left, top + Ascent())
        .toAlignedRect()
        .adjusted(-kGlyphOverhang, -kGlyphOverhang, kGlyphOverhang, kGlyphOverhang);
  }

  void Draw(QPainter& painter, int left, int top) const {
    painter.setFont(font_);
    painter.translate(left, top + Ascent());
    painter.scale(factor_, factor_);
    painter.drawText(QPointF(), text_);
  }

 private:
  double Ascent() const { return metrics_.ascent() * factor_; }

  QString text_;
  QFont font_;
  QFontMetricsF metrics_;
  double factor_;
};

}  // namespace

PixelRect QtTextPainter::Measure(const std::string& text, const Font& font, float scale) {
  const Line line(text, font, FontPixels(font, pixels_per_inch_, scale));
  return {0, 0, line.Width(), line.Height()};
}

PixelRect QtTextPainter::Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                              Colour colour, float scale) {
  if (target.Bounds().IsEmpty()) return {};
  const Line line(text, font, FontPixels(font, pixels_per_inch_, scale));
  const QRect ink = line.Ink(left, top);
  const PixelRect changed = Intersect({ink.x(), ink.y(), ink.width(), ink.height()}, target.Bounds());
  if (changed.IsEmpty()) return {};

  QImage image = ImageOver(target);
  QPainter painter(&image);
  painter.setClipRect(changed.left, changed.top, changed.width, changed.height);
  painter.setPen(QColor::fromRgb(ToPixel(colour)));
  line.Draw(painter, left, top);
  return changed;
}

}  // namespace quorvale
