#pragma once

#include <cmath>

#include "platform/win32/windows_api.h"
#include "toolkit/units.h"

namespace quorvale {

// Dots per inch, and what follows from them for the size of windows. The calls for the resolution of one monitor came
// with Windows 10, so they are looked up at run time. An older system has one resolution for all monitors.

inline constexpr int kUsualDpi = 96;
inline constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
inline constexpr DWORD kDialogExtendedStyle = WS_EX_DLGMODALFRAME;

// What the toolkit's pixel is.
enum class PixelKind {
  kPhysical,  // a device pixel: the show
  kLogical,   // a 96th of an inch, or less if the screen is too small: windows scale as a whole
};

int DpiOf(HWND window);
int SystemDpi();

// The size of a window with frame, title and menu around a client area of this size, in device pixels.
SIZE WindowSize(SIZE client, DWORD style, DWORD extended_style, bool has_menu, int dpi);

// The fonts of the user's choice at this resolution, which the system's text size enlarges.
struct UserFonts {
  LOGFONTW dialogs;
  LOGFONTW tool_tips;
};
UserFonts ReadUserFonts(int dpi);

// Gives this thread the DPI awareness of a window, which may be another program's. A child window needs that of its
// parent.
void AdoptDpiAwarenessOf(HWND host);

// Device pixels per toolkit pixel on this monitor: 1 for a show. Dialogs grow with the resolution and the system's text
// size as far as the monitor has room for them.
float ToolkitScale(PixelKind kind, int dpi, HMONITOR monitor);

// The area of the monitor without the task bar.
RECT WorkAreaOf(HMONITOR monitor);
HMONITOR PrimaryMonitor();

// Rounds each edge to the nearest device pixel.
inline PixelRect ToDevice(const PixelRect& rect, float scale) {
  const auto edge = [scale](int pixels) { return static_cast<int>(std::lround(static_cast<float>(pixels) * scale)); };
  const int left = edge(rect.left);
  const int top = edge(rect.top);
  return {left, top, edge(rect.Right()) - left, edge(rect.Bottom()) - top};
}

}  // namespace quorvale
