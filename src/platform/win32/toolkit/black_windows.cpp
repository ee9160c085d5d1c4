#include "platform/win32/toolkit/black_windows.h"

#include "platform/win32/toolkit/deliver.h"
#include "platform/win32/toolkit/input_messages.h"
#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/top_window.h"

namespace quorvale {

// Keeps one monitor black, and hands input on.
class BlackWindow : public NativeWindow {
 public:
  explicit BlackWindow(TopWindow& saver)
      : NativeWindow(WS_POPUP, WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, nullptr), saver_(saver) {}

  void Cover(const RECT& monitor) const {
    SetWindowPos(Window(), HWND_TOPMOST, monitor.left, monitor.top, monitor.right - monitor.left,
                 monitor.bottom - monitor.top, SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }

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
      saver_.TakeMouseMove();
    } else if (IsMouseDown(message)) {
      saver_.TakeMouseDown();
    } else if (IsKeyDown(message)) {
      saver_.TakeKey(static_cast<int>(first));
    } else {
      return Default(message, first, second);
    }
    return 0;
  }

  TopWindow& saver_;
};

namespace {

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC /*context*/, RECT* /*area*/, LPARAM list) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (GetMonitorInfoW(monitor, &info) == 0) return TRUE;
  // The primary monitor's corner is 0, 0. One that mirrors it shows the show.
  if (info.rcMonitor.left == 0 && info.rcMonitor.top == 0) return TRUE;
  Deliver([&] { reinterpret_cast<std::vector<RECT>*>(list)->push_back(info.rcMonitor); });
  return TRUE;
}

std::vector<RECT> OtherMonitors() {
  std::vector<RECT> monitors;
  EnumDisplayMonitors(nullptr, nullptr, &AddMonitor, reinterpret_cast<LPARAM>(&monitors));
  return monitors;
}

}  // namespace

BlackWindows::BlackWindows(TopWindow& saver) : saver_(saver) { CoverMonitors(); }

BlackWindows::~BlackWindows() = default;

// A window whose monitor has gone is kept, since it may be delivering an event further up.
void BlackWindows::CoverMonitors() {
  if (is_hidden_) return;
  const std::vector<RECT> monitors = OtherMonitors();
  while (windows_.size() < monitors.size()) windows_.push_back(std::make_unique<BlackWindow>(saver_));
  for (std::size_t i = 0; i < monitors.size(); ++i) windows_[i]->Cover(monitors[i]);
  for (std::size_t i = monitors.size(); i < windows_.size(); ++i) ShowWindow(windows_[i]->Window(), SW_HIDE);
}

void BlackWindows::Hide() {
  is_hidden_ = true;
  for (const auto& window : windows_) ShowWindow(window->Window(), SW_HIDE);
}

}  // namespace quorvale
