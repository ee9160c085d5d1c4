#include "platform/desktop/toolkit/pixels.h"

#include <QApplication>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>
#include <cmath>

#include "toolkit/dialog_rules.h"

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

double ToolkitScale(PixelKind kind, double device_pixel_ratio) {
  return kind == PixelKind::kLogical ? device_pixel_ratio * LayoutScale() : 1;
}

double ToolkitPixelRatio(PixelKind kind, double device_pixel_ratio) {
  return kind == PixelKind::kLogical ? 1 / LayoutScale() : device_pixel_ratio;
}

QRect ToQtPixels(const PixelRect& rect, double ratio) {
  const auto edge = [ratio](int pixels) { return static_cast<int>(std::lround(pixels / ratio)); };
  const int left = edge(rect.left);
  const int top = edge(rect.top);
  return {left, top, edge(rect.Right()) - left, edge(rect.Bottom()) - top};
}

QImage ImageOver(const PixelView& pixels, QImage::Format format) {
  return {reinterpret_cast<uchar*>(pixels.pixels), pixels.width, pixels.height,
          static_cast<qsizetype>(pixels.stride) * static_cast<qsizetype>(sizeof(Pixel)), format};
}

QImage ImageOver(const ConstPixelView& pixels) {
  return {reinterpret_cast<const uchar*>(pixels.pixels), pixels.width, pixels.height,
          static_cast<qsizetype>(pixels.stride) * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32};
}

QImage ToImage(const Artwork& artwork, float scale) {
  Bitmap bitmap = artwork(scale);
  return ImageOver(bitmap.View(), QImage::Format_ARGB32).copy();
}

}  // namespace quorvale
