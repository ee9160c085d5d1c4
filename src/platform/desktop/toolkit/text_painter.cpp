#include "platform/desktop/toolkit/text_painter.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace quorvale {
namespace {

constexpr double kPointsPerInch = 72;
// A device on which a point is a pixel: QFont takes fractions of the former alone.
constexpr int kDotsPerMeter = 2835;
// What a glyph may reach beyond its own box, smoothing included.
constexpr int kOverhang = 2;

struct Line {
  Line(const std::string& utf8, const QFont& font, QImage& device)
      : text(QString::fromStdString(utf8)), metrics(font, &device) {}

  QString text;
  QFontMetricsF metrics;

  int Width() const { return static_cast<int>(std::ceil(metrics.horizontalAdvance(text))); }
  int Height() const { return static_cast<int>(std::ceil(metrics.height())); }
};

QImage PointDevice(QImage image) {
  image.setDotsPerMeterX(kDotsPerMeter);
  image.setDotsPerMeterY(kDotsPerMeter);
  return image;
}

}  // namespace

PixelRect QtTextPainter::Measure(const std::string& text, const Font& font, float scale) {
  QImage device = PointDevice(QImage(1, 1, QImage::Format_RGB32));
  const Line line(text, ToQtFont(font, scale), device);
  return {0, 0, line.Width(), line.Height()};
}

PixelRect QtTextPainter::Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                              Colour colour, float scale) {
  if (target.Bounds().IsEmpty()) return {};
  QImage image = PointDevice(QImage(reinterpret_cast<uchar*>(target.pixels), target.width, target.height,
                                    static_cast<qsizetype>(target.stride) * static_cast<qsizetype>(sizeof(Pixel)),
                                    QImage::Format_RGB32));
  const QFont qt_font = ToQtFont(font, scale);
  const Line line(text, qt_font, image);
  const QRect ink = line.metrics.boundingRect(line.text)
                        .translated(left, top + line.metrics.ascent())
                        .toAlignedRect()
                        .adjusted(-kOverhang, -kOverhang, kOverhang, kOverhang);
  const PixelRect changed = Intersect({ink.x(), ink.y(), ink.width(), ink.height()}, target.Bounds());
  if (changed.IsEmpty()) return {};

  QPainter painter(&image);
  painter.setClipRect(changed.left, changed.top, changed.width, changed.height);
  painter.setFont(qt_font);
  painter.setPen(QColor::fromRgb(ToPixel(colour)));
  painter.drawText(QPointF(left, top + line.metrics.ascent()), line.text);
  return changed;
}

QFont QtTextPainter::ToQtFont(const Font& font, float scale) const {
  QFont result;
  // The families of the two names are not on Linux; these are what stands in for them.
  const bool is_serif = font.name.find("Serif") != std::string::npos;
  if (is_serif) {
    result.setFamilies({"Nimbus Roman", "Liberation Serif", "Tinos", "FreeSerif", "DejaVu Serif", "Noto Serif"});
  } else {
    result.setFamilies({"DejaVu Sans", "Liberation Sans", "Nimbus Sans", "Noto Sans"});
  }
  result.setStyleHint(is_serif ? QFont::Serif : QFont::SansSerif,
                      QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  // Hinting would snap advances to whole pixels, which at four of them spoils every letter.
  result.setHintingPreference(QFont::PreferNoHinting);
  result.setPointSizeF(
      std::max(1.0, static_cast<double>(font.points) * pixels_per_inch_ / kPointsPerInch * static_cast<double>(scale)));
  return result;
}

}  // namespace quorvale
