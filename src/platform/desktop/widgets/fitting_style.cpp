#include "platform/desktop/widgets/fitting_style.h"

#include <QApplication>
#include <QWidget>
#include <algorithm>

namespace quorvale {

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
