#pragma once

#include "platform/desktop/toolkit/surface_window.h"
#include "toolkit/platform.h"

namespace quorvale {

class QtSurfacePeer : public SurfacePeer {
 public:
  // All of them outlive the peer.
  QtSurfacePeer(TopWindow& top, Surface& surface, SurfaceEvents& events) : window_(top, surface, events) {}

  WindowHandle Handle() const override { return static_cast<WindowHandle>(window_.winId()); }
  float Scale() const override { return window_.Scale(); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void Invalidate() override { window_.PresentSoon(); }
  void Present() override { window_.Present(); }
  void TakeFocus() override { window_.TakeFocus(); }

  SurfaceWindow& Window() { return window_; }

 private:
  SurfaceWindow window_;
};

}  // namespace quorvale
