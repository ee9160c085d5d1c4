#include "platform/desktop/toolkit/layout_scale.h"

#include <QApplication>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>

#include "toolkit/fitting.h"

namespace quorvale {
namespace {

// 9 points at 96 dots per inch.
constexpr double kUsualFontPixels = 12;

double ReadScale() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  const double room = screen != nullptr ? screen->availableGeometry().height() : kTallestDialog;
  const double by_font = std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / kUsualFontPixels);
  return LayoutScale(by_font, room, kTallestDialog);
}

}  // namespace

double LayoutScale() {
  static const double scale = ReadScale();
  return scale;
}

}  // namespace quorvale
