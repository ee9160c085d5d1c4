#include "platform/win32/toolkit/surface_window.h"

#include <utility>

#include "platform/win32/toolkit/gdi.h"

namespace quorvale {
namespace {

constexpr UINT kPresent = WM_APP;

}  // namespace

SurfaceWindow::SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events)
    : NativeWindow(WS_CHILD, 0, top.Window()), Presenter(surface), top_(top), events_(events), scale_(top.Scale()) {
  top.OfferFocus(Window());
}

void SurfaceWindow::SetBounds(const PixelRect& bounds) {
  const PixelRect rect = ToDevice(bounds, scale_);
  SetWindowPos(Window(), nullptr, rect.left, rect.top, rect.width, rect.height,
               SWP_NOZORDER | SWP_NOACTIVATE | (rect.IsEmpty() ? SWP_HIDEWINDOW : SWP_SHOWWINDOW));
}

void SurfaceWindow::PostPresent() { PostMessageW(Window(), kPresent, 0, 0); }

void SurfaceWindow::Show(const std::vector<PixelRect>& dirty) {
  const HDC context = GetDC(Window());
  for (const PixelRect& rect : dirty) CopyPixels(context, Shown().Seen(), rect);
  ReleaseDC(Window(), context);
  GdiFlush();
}

bool SurfaceWindow::IsInSight() const {
  return Window() != nullptr && IsWindowVisible(Window()) != 0 && IsIconic(GetAncestor(Window(), GA_ROOT)) == 0;
}

// The toolkit then sets a new size.
void SurfaceWindow::FollowScale() {
  if (std::exchange(scale_, top_.Scale()) != top_.Scale()) events_.OnScaleChanged();
}

LRESULT SurfaceWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_MOUSEMOVE || IsMouseDown(message)) {
    const MouseInput::Position at{static_cast<float>(GET_X_LPARAM(second)) / scale_,
                                  static_cast<float>(GET_Y_LPARAM(second)) / scale_};
    if (message == WM_MOUSEMOVE) {
      top_.Mouse().ReportMove(events_, MessagePosition(), at);
    } else {
      top_.Mouse().ReportDown(events_, at);
    }
    return 0;
  }
  if (IsKeyDown(message)) {
    events_.OnKeyDown(static_cast<int>(first));
    return 0;
  }
  switch (message) {
    case kScaleChanged:
      FollowScale();
      return 0;
    case kPresent:
      PresentPosted();
      return 0;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_CLOSE:
      // The message hook of the form decides. The window must stay, since a tick may be drawing on it.
      return 0;
    default:
      return Default(message, first, second);
  }
}

void SurfaceWindow::Paint() {
  PAINTSTRUCT paint{};
  BeginPaint(Window(), &paint);
  const RECT& area = paint.rcPaint;
  Shown().Changed(Intersect({area.left, area.top, area.right - area.left, area.bottom - area.top}, Shown().Bounds()));
  EndPaint(Window(), &paint);
  Present();
}

}  // namespace quorvale
