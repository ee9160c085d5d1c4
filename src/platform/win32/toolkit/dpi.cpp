#include "platform/win32/toolkit/dpi.h"

namespace quorvale {
namespace {

template <typename Function>
Function FindCall(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

}  // namespace

int DpiOf(HWND window) {
  static const auto get_dpi = FindCall<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
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
  static const auto adjust = FindCall<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
  RECT rect{0, 0, client.cx, client.cy};
  if (adjust != nullptr) {
    adjust(&rect, style, has_menu ? TRUE : FALSE, extended_style, static_cast<UINT>(dpi));
  } else {
    AdjustWindowRectEx(&rect, style, has_menu ? TRUE : FALSE, extended_style);
  }
  return {rect.right - rect.left, rect.bottom - rect.top};
}

void FollowDpiOf(HWND host) {
  static const auto context_of = FindCall<DPI_AWARENESS_CONTEXT(WINAPI*)(HWND)>("GetWindowDpiAwarenessContext");
  static const auto set_context =
      FindCall<DPI_AWARENESS_CONTEXT(WINAPI*)(DPI_AWARENESS_CONTEXT)>("SetThreadDpiAwarenessContext");
  if (context_of == nullptr || set_context == nullptr || IsWindow(host) == 0) return;
  set_context(context_of(host));
}

}  // namespace quorvale
