#pragma once

#include <string>

#include "platform/desktop/widgets/dialog_window.h"
#include "toolkit/platform.h"

namespace quorvale {

class DialogPeer : public WindowPeer {
 public:
  explicit DialogPeer(WindowEvents& events) : window_(events) {}

  WindowHandle Handle() const override { return static_cast<WindowHandle>(window_.winId()); }
  void SetCaption(const std::string& caption) override { window_.setWindowTitle(QString::fromStdString(caption)); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void SetVisible(bool visible) override;
  void SetIcon(const Artwork& icon) override;

  DialogWindow& Window() { return window_; }

 private:
  DialogWindow window_;
};

}  // namespace quorvale
