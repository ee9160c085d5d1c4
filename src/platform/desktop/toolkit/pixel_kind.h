#pragma once

#include <QRect>
#include <cmath>

#include "platform/desktop/toolkit/layout_scale.h"
#include "toolkit/units.h"

namespace quorvale {

// What the toolkit's pixel is, next to Qt's own, which stands for one or more pixels of the device.
enum class PixelKind {
  kPhysical,  // a pixel of the device: the show
  kLogical,   // one of the layout, which follows the desktop's scale and its font
};

// Device pixels to the toolkit's pixel.
inline double ToolkitScale(PixelKind kind, double device_pixel_ratio) {
  return kind == PixelKind::kLogical ? device_pixel_ratio * LayoutScale() : 1;
}

// The toolkit's pixels to Qt's.
inline double ToolkitPixelRatio(PixelKind kind, double device_pixel_ratio) {
  return kind == PixelKind::kLogical ? 1 / LayoutScale() : device_pixel_ratio;
}

// In Qt's pixels, each edge at the nearest one.
inline QRect ToQtPixels(const PixelRect& rect, double ratio) {
  const auto edge = [ratio](int pixels) { return static_cast<int>(std::lround(pixels / ratio)); };
  const int left = edge(rect.left);
  const int top = edge(rect.top);
  return {left, top, edge(rect.Right()) - left, edge(rect.Bottom()) - top};
}

}  // namespace quorvale
