#include "platform/win32/toolkit/black_window.h"

#include "platform/common/deliver.h"
#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/top_window.h"

namespace quorvale {
namespace {

// Keeps one monitor black, and passes input to the show's window.
class Win32BlackWindow : public NativeWindow, public BlackWindow {
 public:
  explicit Win32BlackWindow(TopWindow& saver) : NativeWindow(WS_POPUP, kMonitorExtendedStyle, nullptr), saver_(saver) {}

  void Cover(const PixelRect& monitor) override {
    SetWindowPos(Window(), HWND_TOPMOST, monitor.left, monitor.top, monitor.width, monitor.height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }
  void Hide() override { ShowWindow(Window(), SW_HIDE); }

 private:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override {
    if (message == WM_ERASEBKGND) {
      RECT client{};
      GetClientRect(Window(), &client);
      FillRect(reinterpret_cast<HDC>(first), &client, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
      return 1;
    }
    if (message == WM_CLOSE) return 0;
    if (message == WM_MOUSEMOVE) {
      saver_.Mouse().ReportMove(MessagePosition());
    } else if (IsMouseDown(message)) {
      saver_.Mouse().ReportDown();
    } else if (IsKeyDown(message)) {
      saver_.ReportKey(static_cast<int>(first));
    } else {
      return Default(message, first, second);
    }
    return 0;
  }

  TopWindow& saver_;
};

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC /*context*/, RECT* /*area*/, LPARAM list) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (GetMonitorInfoW(monitor, &info) == 0) return TRUE;
  const RECT& place = info.rcMonitor;
  Deliver([&] {
    auto& monitors = *reinterpret_cast<std::vector<PixelRect>*>(list);
    const bool is_primary = place.left == 0 && place.top == 0;
    monitors.insert(is_primary ? monitors.begin() : monitors.end(),
                    {place.left, place.top, place.right - place.left, place.bottom - place.top});
  });
  return TRUE;
}

}  // namespace

std::vector<PixelRect> AllMonitors() {
  std::vector<PixelRect> monitors;
  EnumDisplayMonitors(nullptr, nullptr, &AddMonitor, reinterpret_cast<LPARAM>(&monitors));
  return monitors;
}

std::unique_ptr<BlackWindows> CoverOtherMonitors(TopWindow& saver) {
  return std::make_unique<BlackWindows>(AllMonitors, [&saver] { return std::make_unique<Win32BlackWindow>(saver); });
}

}  // namespace quorvale
