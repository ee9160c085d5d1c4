#include "platform/desktop/widgets/fitting.h"

#include <QApplication>
#include <QFontMetrics>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "platform/desktop/toolkit/pixels.h"

namespace quorvale {
namespace {

constexpr double kFontPixels = 11;
constexpr double kLeastFontPixels = 8;
constexpr double kPixelsPerPoint = 96.0 / 72;

QFont FontOf(double pixels) {
  QFont font = QApplication::font();
  font.setPixelSize(Scaled(pixels));
  return font;
}

}  // namespace

QFont DialogFont() { return FontOf(kFontPixels); }

QFont DialogFont(float points) { return FontOf(static_cast<double>(points) * kPixelsPerPoint); }

QFont FittingFont(const QFont& font, const QString& caption, int width) {
  const QString text = WithoutAccessKey(caption);
  QFont fitting = font;
  while (fitting.pixelSize() > Scaled(kLeastFontPixels) && QFontMetrics(fitting).horizontalAdvance(text) > width) {
    fitting.setPixelSize(fitting.pixelSize() - 1);
  }
  return fitting;
}

int Scaled(double pixels) { return static_cast<int>(std::lround(pixels * LayoutScale())); }

QString Caption(const std::string& caption) { return QString::fromStdString(caption); }

QString WithoutAccessKey(const QString& caption) {
  QString text;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return text;
}

FittingStyle& FittingStyle::Get() {
  static auto* const style = [] {
    auto* const made = new FittingStyle;
    made->setParent(QApplication::instance());
    return made;
  }();
  return *style;
}

int FittingStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return widget != nullptr ? std::min(usual, widget->height()) : usual;
    default:
      return usual;
  }
}

}  // namespace quorvale
