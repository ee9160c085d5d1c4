#include "platform/win32/toolkit/resolution.h"

#include "platform/win32/system/modules.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {
namespace {

template <typename Function>
Function* FindUserFunction(const char* name) {
  return FindFunction<Function>(GetModuleHandleW(L"user32.dll"), name);
}

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
  return static_cast<float>(LayoutScale(static_cast<double>(dpi) / kUsualDpi,
                                        work_area.bottom - work_area.top - frame.cy, kTallestDialogInside));
}

RECT WorkAreaOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitor, &info);
  return info.rcWork;
}

HMONITOR PrimaryMonitor() { return MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY); }

}  // namespace quorvale
