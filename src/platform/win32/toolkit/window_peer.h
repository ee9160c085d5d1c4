#pragma once

#include <string>

#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/toolkit/wide_text.h"
#include "toolkit/platform.h"

namespace quorvale {

class Win32WindowPeer : public WindowPeer {
 public:
  Win32WindowPeer(WindowKind kind, PixelKind pixels, WindowEvents& events) : window_(kind, pixels, events) {}

  WindowHandle Handle() const override { return reinterpret_cast<WindowHandle>(window_.Window()); }
  void SetCaption(const std::string& caption) override { SetWindowTextW(window_.Window(), ToWide(caption).c_str()); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void SetVisible(bool visible) override {
    if (visible) {
      window_.Appear();
    } else {
      window_.Hide();
    }
  }

  TopWindow& Window() { return window_; }

 private:
  TopWindow window_;
};

}  // namespace quorvale
