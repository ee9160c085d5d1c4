#include "platform/desktop/toolkit/layout_scale.h"

#include <QApplication>
#include <QFontInfo>
#include <algorithm>

namespace quorvale {

double LayoutScale() {
  // 9 points at 96 dots per inch.
  constexpr double kUsualFontPixels = 12;
  constexpr double kMost = 4;
  static const double scale = std::clamp(QFontInfo(QApplication::font()).pixelSize() / kUsualFontPixels, 1.0, kMost);
  return scale;
}

}  // namespace quorvale
