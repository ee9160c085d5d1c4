#pragma once

#include <memory>
#include <string>

#include "platform/common/black_windows.h"
#include "platform/desktop/system/title_lock.h"
#include "platform/desktop/toolkit/screen_watch.h"
#include "platform/desktop/toolkit/top_window.h"
#include "toolkit/platform.h"

namespace quorvale {

// The window of a show's form.
class QtWindowPeer : public WindowPeer {
 public:
  // `titles` outlives the peer; a saver window claims its title there while it shows, unless it lies in a
  // `daemon_window`: the daemon alone decides how many shows there are and what is on the other monitors.
  QtWindowPeer(WindowKind kind, PixelKind pixels, WindowEvents& events, TitleLock& titles, WindowHandle daemon_window);
  ~QtWindowPeer() override;
  QtWindowPeer(const QtWindowPeer&) = delete;
  QtWindowPeer& operator=(const QtWindowPeer&) = delete;

  WindowHandle Handle() const override;
  void SetCaption(const std::string& caption) override;
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void SetVisible(bool visible) override;
  // Such a window has no title bar.
  void SetIcon(const Artwork& /*icon*/) override {}

  TopWindow& Window() { return window_; }

 private:
  void ShowSaver();

  bool covers_screen_;
  WindowEvents& events_;
  TitleLock& titles_;
  std::string caption_;
  TopWindow window_;
  std::unique_ptr<BlackWindows> black_windows_;
  ScreenWatch screen_watch_{[this] {
    if (black_windows_) black_windows_->CoverMonitors();
  }};
};

}  // namespace quorvale
