#pragma once

#include <memory>

#include "platform/win32/toolkit/surface_window.h"
#include "toolkit/platform.h"

namespace quorvale {

class Win32SurfacePeer : public SurfacePeer {
 public:
  // All of them outlive the peer.
  Win32SurfacePeer(TopWindow& top, Surface& surface, SurfaceEvents& events)
      : window_(std::make_shared<SurfaceWindow>(top, surface, events)) {}

  WindowHandle Handle() const override { return reinterpret_cast<WindowHandle>(window_->Window()); }
  float Scale() const override { return window_->Scale(); }
  void SetBounds(const PixelRect& bounds) override { window_->SetBounds(bounds); }
  void Invalidate() override { window_->PresentSoon(); }
  void Present() override { window_->Present(); }
  void TakeFocus() override { SetFocus(window_->Window()); }

  // For those that may outlive the peer.
  std::weak_ptr<SurfaceWindow> Window() const { return window_; }

 private:
  std::shared_ptr<SurfaceWindow> window_;
};

}  // namespace quorvale
