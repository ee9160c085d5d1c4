#pragma once

#include <cmath>

#include "platform/win32/toolkit/dpi.h"
#include "toolkit/units.h"

namespace quorvale {

inline constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
inline constexpr DWORD kDialogExtendedStyle = WS_EX_DLGMODALFRAME;

// What the toolkit's pixel is.
enum class PixelKind {
  kPhysical,  // a pixel of the device: the show
  kLogical,   // a 96th of an inch, or less where that is too large: windows scale as a whole
};

// Device pixels to the toolkit's pixel on that monitor: dialogs are as large as its resolution asks for, as far as it
// has room for them.
float ToolkitScale(PixelKind kind, int dpi, HMONITOR monitor);

// The monitor without what the system keeps for itself.
RECT WorkAreaOf(HMONITOR monitor);
HMONITOR PrimaryMonitor();

// Each edge at the nearest device pixel.
inline PixelRect ToDevice(const PixelRect& rect, float scale) {
  const auto edge = [scale](int pixels) { return static_cast<int>(std::lround(static_cast<float>(pixels) * scale)); };
  const int left = edge(rect.left);
  const int top = edge(rect.top);
  return {left, top, edge(rect.Right()) - left, edge(rect.Bottom()) - top};
}

}  // namespace quorvale
