#pragma once

#include "platform/win32/toolkit/surface_window.h"
#include "toolkit/platform.h"

namespace quorvale {

class Win32SurfacePeer : public SurfacePeer {
 public:
  // All of them outlive the peer.
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
