#include "platform/win32/toolkit/resolution.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/system/modules.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {
namespace {

template <typename Function>
Function* FindUserFunction(const char* name) {
  return FindFunction<Function>(GetModuleHandleW(L"user32.dll"), name);
}

// The letters of the usual dialog font have 9 points.
constexpr double kUsualFontPixels = 12;

double TextScale() { return std::max(1.0, std::abs(ReadUserFonts(kUsualDpi).dialogs.lfHeight) / kUsualFontPixels); }

}  // namespace

int DpiOf(HWND window) {
  static auto* const get_dpi = FindUserFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
  const int dpi = get_dpi != nullptr ? static_cast<int>(get_dpi(window)) : 0;
  return dpi != 0 ? dpi : SystemDpi();
}

int SystemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : kUsualDpi;
}

SIZE WindowSize(SIZE client, DWORD style, DWORD extended_style, bool has_menu, int dpi) {
  static auto* const adjust =
      FindUserFunction<BOOL WINAPI(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
  RECT rect{0, 0, client.cx, client.cy};
  if (adjust != nullptr) {
    adjust(&rect, style, has_menu ? TRUE : FALSE, extended_style, static_cast<UINT>(dpi));
  } else {
    AdjustWindowRectEx(&rect, style, has_menu ? TRUE : FALSE, extended_style);
  }
  return {rect.right - rect.left, rect.bottom - rect.top};
}

// Without the call for one resolution, the fonts are those of the screen.
UserFonts ReadUserFonts(int dpi) {
  static auto* const read_for_dpi =
      FindUserFunction<BOOL WINAPI(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (read_for_dpi != nullptr) {
    read_for_dpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi));
    return {metrics.lfMessageFont, metrics.lfStatusFont};
  }
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  for (LOGFONTW* const font : {&metrics.lfMessageFont, &metrics.lfStatusFont}) {
    font->lfHeight = MulDiv(font->lfHeight, dpi, SystemDpi());
  }
  return {metrics.lfMessageFont, metrics.lfStatusFont};
}

void AdoptDpiAwarenessOf(HWND host) {
  static auto* const context_of = FindUserFunction<DPI_AWARENESS_CONTEXT WINAPI(HWND)>("GetWindowDpiAwarenessContext");
  static auto* const set_context =
      FindUserFunction<DPI_AWARENESS_CONTEXT WINAPI(DPI_AWARENESS_CONTEXT)>("SetThreadDpiAwarenessContext");
  if (context_of == nullptr || set_context == nullptr || IsWindow(host) == 0) return;
  set_context(context_of(host));
}

float ToolkitScale(PixelKind kind, int dpi, HMONITOR monitor) {
  if (kind == PixelKind::kPhysical) return 1;
  const RECT work_area = WorkAreaOf(monitor);
  const SIZE frame = WindowSize({}, kDialogStyle, kDialogExtendedStyle, true, dpi);
  return static_cast<float>(
      LayoutScale(TextScale() * dpi / kUsualDpi, work_area.bottom - work_area.top - frame.cy, kTallestDialogInside));
}

RECT WorkAreaOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitor, &info);
  return info.rcWork;
}

HMONITOR PrimaryMonitor() { return MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY); }

}  // namespace quorvale
