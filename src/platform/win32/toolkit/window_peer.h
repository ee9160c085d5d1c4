#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/toolkit/wide_text.h"
#include "toolkit/platform.h"

namespace quorvale {

class Win32WindowPeer : public WindowPeer {
 public:
  explicit Win32WindowPeer(std::unique_ptr<TopWindow> window) : window_(std::move(window)) {}

  WindowHandle Handle() const override { return reinterpret_cast<WindowHandle>(window_->Window()); }
  void SetCaption(const std::string& caption) override { SetWindowTextW(window_->Window(), ToWide(caption).c_str()); }
  void SetBounds(const PixelRect& bounds) override { window_->SetBounds(bounds); }
  void SetVisible(bool visible) override {
    if (visible && IsWindowVisible(window_->Window()) != 0) return;
    if (visible) {
      window_->Appear();
    } else {
      window_->Hide();
    }
  }
  void SetIcon(const Artwork& icon) override { window_->SetIcon(icon); }

  TopWindow& Window() { return *window_; }

 private:
  std::unique_ptr<TopWindow> window_;
};

}  // namespace quorvale
