#pragma once

#include "platform/desktop/toolkit/surface_window.h"
#include "toolkit/platform.h"

namespace quorvale {

// Every surface peer of this platform.
class QtSurfacePeer : public SurfacePeer {
 public:
  virtual Presenter& Shown() = 0;
};

// A picture box of a show.
class SurfaceWindowPeer : public QtSurfacePeer {
 public:
  // All of them outlive the peer.
  SurfaceWindowPeer(TopWindow& top, Surface& surface, SurfaceEvents& events) : window_(top, surface, events) {}

  WindowHandle Handle() const override { return static_cast<WindowHandle>(window_.winId()); }
  float Scale() const override { return window_.Scale(); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void Invalidate() override { window_.PresentSoon(); }
  void Present() override { window_.Present(); }
  void TakeFocus() override { window_.TakeFocus(); }

  Presenter& Shown() override { return window_; }

 private:
  SurfaceWindow window_;
};

}  // namespace quorvale
