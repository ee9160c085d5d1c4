#include "platform/win32/system/win32_window_system.h"

#include "base/failure.h"
#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

HWND ToHwnd(WindowHandle window) { return reinterpret_cast<HWND>(window); }

WindowHandle ToHandle(HWND window) { return reinterpret_cast<WindowHandle>(window); }

}  // namespace

WindowHandle Win32WindowSystem::FindWindow(const std::string& title) {
  return ToHandle(::FindWindowA(nullptr, title.c_str()));
}

WindowHandle Win32WindowSystem::GetForegroundWindow() { return ToHandle(::GetForegroundWindow()); }

void Win32WindowSystem::EnableWindow(WindowHandle window, bool enabled) {
  ::EnableWindow(ToHwnd(window), enabled ? TRUE : FALSE);
}

bool Win32WindowSystem::IsWindow(WindowHandle window) { return ::IsWindow(ToHwnd(window)) != 0; }

void Win32WindowSystem::GetClientRect(WindowHandle window, ClientRect& rect) {
  RECT client{};
  if (::GetClientRect(ToHwnd(window), &client) != 0) rect = {client.left, client.top, client.right, client.bottom};
}

void Win32WindowSystem::SetParent(WindowHandle window, WindowHandle parent) {
  ::SetParent(ToHwnd(window), ToHwnd(parent));
}

void Win32WindowSystem::SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width,
                                     int height, std::uint32_t flags) {
  ::SetWindowPos(ToHwnd(window), ToHwnd(static_cast<WindowHandle>(insert_after)), x, y, width, height, flags);
}

int Win32WindowSystem::ShowCursor(bool show) { return ::ShowCursor(show ? TRUE : FALSE); }

void Win32WindowSystem::ActivateWindow(const std::string& title) {
  const WindowHandle found = FindWindow(title);
  if (found == 0) throw Failure(FailureNumber::kNotFound, "No window is titled " + title, "Win32WindowSystem");
  ActivateWindow(found);
}

void Win32WindowSystem::ActivateWindow(WindowHandle window) {
  if (!IsWindow(window)) throw Failure(FailureNumber::kNotFound, "No such window", "Win32WindowSystem");
  if (IsIconic(ToHwnd(window)) != 0) ShowWindow(ToHwnd(window), SW_RESTORE);
  SetForegroundWindow(ToHwnd(window));
}

}  // namespace quorvale
