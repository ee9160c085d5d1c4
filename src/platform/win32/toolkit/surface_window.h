#pragma once

#include <cstdint>

#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/top_window.h"
#include "toolkit/surface.h"

namespace quorvale {

// A picture box's window: a child of its form's window, or of any other that it is moved into. It copies
// what has changed of the toolkit's surface straight to the screen.
class SurfaceWindow : public NativeWindow {
 public:
  // All of them outlive the window.
  SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events);

  float Scale() const { return scale_; }
  void SetBounds(const PixelRect& bounds);

  // In the next pass of the event queue, and now.
  void PresentSoon();
  void Present();
  // How often something has been presented.
  std::uint64_t Presentations() const { return presentations_; }

  // Whether it is on the screen, as far as the system tells.
  bool IsInSight() const;

 private:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void Paint();
  void FollowScale();

  TopWindow& top_;
  Surface& surface_;
  SurfaceEvents& events_;
  float scale_;
  std::uint64_t presentations_ = 0;
  bool present_is_posted_ = false;
};

}  // namespace quorvale
