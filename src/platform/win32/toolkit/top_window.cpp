#include "platform/win32/toolkit/top_window.h"

#include <algorithm>
#include <utility>

#include "platform/win32/toolkit/black_window.h"

namespace quorvale {
namespace {

constexpr UINT kCheckScreen = WM_APP + 2;
constexpr UINT_PTR kCheckTimer = 1;
constexpr UINT kCheckInterval = 500;  // milliseconds

DWORD StyleOf(WindowKind kind) { return (kind == WindowKind::kDialog ? kDialogStyle : WS_POPUP) | WS_CLIPCHILDREN; }

DWORD ExtendedStyleOf(WindowKind kind) {
  if (kind == WindowKind::kMonitor) return kMonitorExtendedStyle;
  return kind == WindowKind::kDialog ? kDialogExtendedStyle : 0;
}

// The top left corner nearest to `wanted` at which a window of this size lies in the work area.
POINT InWorkArea(POINT wanted, SIZE size) {
  const RECT area = WorkAreaOf(MonitorFromPoint(wanted, MONITOR_DEFAULTTONEAREST));
  return {std::max(area.left, std::min(wanted.x, area.right - size.cx)),
          std::max(area.top, std::min(wanted.y, area.bottom - size.cy))};
}

}  // namespace

TopWindow::TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events)
    : NativeWindow(StyleOf(kind), ExtendedStyleOf(kind), nullptr),
      kind_(kind),
      pixels_(pixels),
      events_(events),
      scale_(ToolkitScale(pixels, DpiOf(Window()), PrimaryMonitor())) {}

void TopWindow::SetBounds(const PixelRect& bounds) {
  bounds_ = bounds;
  Place();
}

void TopWindow::SetIcon(const Artwork& artwork) {
  Icon icon = artwork ? MakeIcon(artwork(scale_)) : Icon();
  for (const WPARAM size : {ICON_SMALL, ICON_BIG}) {
    SendMessageW(Window(), WM_SETICON, size, reinterpret_cast<LPARAM>(icon.get()));
  }
  icon_ = std::move(icon);
}

void TopWindow::Place() const {
  const PixelRect client = ToDevice(bounds_, scale_);
  PlaceAt({client.left, client.top});
}

void TopWindow::PlaceAt(POINT corner) const {
  const PixelRect client = ToDevice(bounds_, scale_);
  const SIZE size = WindowSize({client.width, client.height}, StyleOf(kind_), ExtendedStyleOf(kind_),
                               GetMenu(Window()) != nullptr, DpiOf(Window()));
  if (kind_ == WindowKind::kDialog) corner = InWorkArea(corner, size);
  SetWindowPos(Window(), nullptr, corner.x, corner.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void TopWindow::Appear() {
  is_shown_ = true;
  POINT pointer{};
  GetCursorPos(&pointer);
  mouse_.SetPointer({static_cast<double>(pointer.x), static_cast<double>(pointer.y)});
  if (kind_ == WindowKind::kMonitor) {
    ShowWindow(Window(), SW_SHOWNOACTIVATE);
    RedrawWindow(Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return;
  }
  ShowWindow(Window(), SW_SHOW);
  SetForegroundWindow(Window());
  if (!IsSaver(kind_)) return;
  if (kind_ == WindowKind::kSaver) black_windows_ = CoverOtherMonitors(*this);
  had_screen_ = false;
  CheckScreenSoon();
  // Paint now, since the form may be busy for seconds before it handles messages.
  RedrawWindow(Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void TopWindow::Hide() {
  is_shown_ = false;
  ShowWindow(Window(), SW_HIDE);
  if (black_windows_) black_windows_->Hide();
}

void TopWindow::OfferFocus(HWND child) {
  if (focus_ == nullptr) focus_ = child;
}

bool TopWindow::HoldsScreen() const {
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  return process == GetCurrentProcessId() && IsWindowVisible(Window()) != 0 && IsIconic(Window()) == 0;
}

// Posted, because the system is in the middle of a change that it may take back.
void TopWindow::CheckScreenSoon() const { PostMessageW(Window(), kCheckScreen, 0, 0); }

// Windows sends several messages for one loss of the screen, and on the way back the foreground may change to and fro.
// So a loss is reported once, and again only after two successive checks have found the window in front. While a
// message box has disabled the window, the user works with the box, and nothing is checked.
void TopWindow::CheckScreen(bool is_repeated) {
  KillTimer(Window(), kCheckTimer);
  if (!is_shown_ || is_reporting_loss_ || IsWindowEnabled(Window()) == 0) return;
  if (HoldsScreen()) {
    had_screen_ = had_screen_ || is_repeated;
    if (!had_screen_) SetTimer(Window(), kCheckTimer, kCheckInterval, nullptr);
    return;
  }
  if (std::exchange(had_screen_, false)) {
    is_reporting_loss_ = true;
    events_.OnDeactivated();
    is_reporting_loss_ = false;
    if (!is_shown_) return;
  }
  // The form goes on, so the window comes back. The system may refuse that, so try again.
  if (IsIconic(Window()) != 0) ShowWindow(Window(), SW_RESTORE);
  ShowWindow(Window(), SW_SHOW);
  SetForegroundWindow(Window());
  SetTimer(Window(), kCheckTimer, kCheckInterval, nullptr);
}

bool TopWindow::OnShowMessage(UINT message, WPARAM first) {
  switch (message) {
    case kCheckScreen:
      CheckScreen(false);
      return true;
    case WM_TIMER:
      if (first != kCheckTimer) return false;
      CheckScreen(true);
      return true;
    case WM_SYSCOMMAND:
      // The system must not start a second saver above the running one.
      return (first & 0xFFF0U) == SC_SCREENSAVE;
    case WM_ACTIVATEAPP:
      CheckScreenSoon();
      return false;
    case WM_SHOWWINDOW:
      if (first == FALSE) CheckScreenSoon();
      return false;
    case WM_ENABLE:
      if (first != FALSE) CheckScreenSoon();
      return false;
    case WM_SIZE:
      if (first == SIZE_MINIMIZED) CheckScreenSoon();
      return false;
    case WM_DISPLAYCHANGE:
      events_.OnScreenChanged();
      if (black_windows_) black_windows_->CoverMonitors();
      return false;
    default:
      return false;
  }
}

LRESULT TopWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_MOUSEMOVE) {
    mouse_.ReportMove(MessagePosition());
    return 0;
  }
  if (IsMouseDown(message)) {
    mouse_.ReportDown();
    return 0;
  }
  if (IsKeyDown(message) && kind_ != WindowKind::kDialog) {
    ReportKey(static_cast<int>(first));
    return 0;
  }
  switch (message) {
    case WM_CLOSE:
      events_.OnCloseRequested();
      return 0;
    case WM_SETFOCUS:
      if (focus_ != nullptr) SetFocus(focus_);
      return 0;
    case WM_ERASEBKGND:
      Erase(reinterpret_cast<HDC>(first));
      return 1;
    default:
      break;
  }
  if (IsSaver(kind_) && OnShowMessage(message, first)) return 0;
  return Default(message, first, second);
}

void TopWindow::Erase(HDC context) const {
  RECT client{};
  GetClientRect(Window(), &client);
  FillRect(context, &client,
           kind_ == WindowKind::kDialog ? GetSysColorBrush(COLOR_BTNFACE)
                                        : static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

}  // namespace quorvale
