#pragma once

#include <vector>

#include "platform/common/presenter.h"
#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/top_window.h"
#include "toolkit/platform.h"
#include "toolkit/surface.h"

namespace quorvale {

// The window of a picture box: a child of its form's window, or of another program's after `SetParent`. Copies the
// changed parts of the surface to the screen.
class SurfaceWindow : public NativeWindow, public Presenter {
 public:
  // `top`, `surface` and `events` outlive the window.
  SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events);

  float Scale() const { return scale_; }
  void SetBounds(const PixelRect& bounds);

  bool IsInSight() const override;

 private:
  void PostPresent() override;
  void Show(const std::vector<PixelRect>& dirty) override;
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void Paint();
  void FollowScale();

  TopWindow& top_;
  SurfaceEvents& events_;
  float scale_;
};

class Win32SurfacePeer : public SurfacePeer {
 public:
  // `top`, `surface` and `events` outlive the peer.
  Win32SurfacePeer(TopWindow& top, Surface& surface, SurfaceEvents& events) : window_(top, surface, events) {}

  WindowHandle Handle() const override { return reinterpret_cast<WindowHandle>(window_.Window()); }
  float Scale() const override { return window_.Scale(); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void Invalidate() override { window_.PresentSoon(); }
  void Present() override { window_.Present(); }
  void TakeFocus() override { SetFocus(window_.Window()); }

  Presenter& Shown() { return window_; }

 private:
  SurfaceWindow window_;
};

}  // namespace quorvale
