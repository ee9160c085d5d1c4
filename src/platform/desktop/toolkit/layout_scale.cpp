#include "platform/desktop/toolkit/layout_scale.h"

#include <QApplication>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>

namespace quorvale {
namespace {

// 9 points at 96 dots per inch.
constexpr double kUsualFontPixels = 12;
// The tallest dialog, its frame and menu bar included, in the layout's pixels.
constexpr double kTallestDialog = 520;
// Letters that are just readable.
constexpr double kLeast = 0.6;

double ReadScale() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const double room = screen != nullptr ? screen->availableGeometry().height() / kTallestDialog : 1;
  const double by_font = std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / kUsualFontPixels);
  return std::max(kLeast, std::min(by_font, room));
}

}  // namespace

double LayoutScale() {
  static const double scale = ReadScale();
  return scale;
}

}  // namespace quorvale
