#pragma once

#include <cmath>

#include "platform/win32/toolkit/dpi.h"
#include "toolkit/units.h"

namespace quorvale {

// What the toolkit's pixel is.
enum class PixelKind {
  kPhysical,  // a pixel of the device: the show
  kLogical,   // a 96th of an inch: windows scale as a whole
};

// Device pixels to the toolkit's pixel.
inline float ToolkitScale(PixelKind kind, int dpi) {
  return kind == PixelKind::kLogical ? static_cast<float>(dpi) / kUsualDpi : 1;
}

// Each edge at the nearest device pixel.
inline PixelRect ToDevice(const PixelRect& rect, float scale) {
  const auto edge = [scale](int pixels) { return static_cast<int>(std::lround(static_cast<float>(pixels) * scale)); };
  const int left = edge(rect.left);
  const int top = edge(rect.top);
  return {left, top, edge(rect.Right()) - left, edge(rect.Bottom()) - top};
}

}  // namespace quorvale
