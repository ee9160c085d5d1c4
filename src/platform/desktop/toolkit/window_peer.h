#pragma once

#include <memory>
#include <string>

#include "platform/common/black_windows.h"
#include "platform/desktop/system/file_locks.h"
#include "platform/desktop/toolkit/top_window.h"
#include "toolkit/platform.h"

namespace quorvale {

// The window of a show's form. While a saver window is visible it claims its title and the other monitors are black,
// or are left to windows of the kind `kMonitor`.
class QtWindowPeer : public WindowPeer {
 public:
  // `titles` outlives the peer. In the window of a `daemon` nothing is claimed and no other monitor covered: the daemon
  // decides how many shows run and what the other monitors show.
  QtWindowPeer(WindowKind kind, PixelKind pixels, WindowEvents& events, TitleLock& titles, const DaemonWindow& daemon);
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

  WindowKind kind_;
  bool covers_screen_;
  WindowEvents& events_;
  TitleLock& titles_;
  std::string caption_;
  TopWindow window_;
  std::unique_ptr<BlackWindows> black_windows_;
};

}  // namespace quorvale
