#pragma once

#include <QRect>
#include <cmath>

#include "toolkit/units.h"

namespace quorvale {

// What the toolkit's pixel is, next to Qt's own, which stands for one or more pixels of the device.
enum class PixelKind {
  kPhysical,  // a pixel of the device: the show
  kLogical,   // Qt's: windows scale as a whole
};

// Device pixels to the toolkit's pixel.
inline double ToolkitScale(PixelKind kind, double device_pixel_ratio) {
  return kind == PixelKind::kLogical ? device_pixel_ratio : 1;
}

// The toolkit's pixels to Qt's.
inline double ToolkitPixelRatio(PixelKind kind, double device_pixel_ratio) {
  return kind == PixelKind::kLogical ? 1 : device_pixel_ratio;
}

// In Qt's pixels, each edge at the nearest one.
inline QRect ToQtPixels(const PixelRect& rect, double ratio) {
  const auto edge = [ratio](int pixels) { return static_cast<int>(std::lround(pixels / ratio)); };
  const int left = edge(rect.left);
  const int top = edge(rect.top);
  return {left, top, edge(rect.Right()) - left, edge(rect.Bottom()) - top};
}

}  // namespace quorvale
