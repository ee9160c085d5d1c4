#pragma once

#include <vector>

#include "platform/common/presenter.h"
#include "platform/win32/toolkit/native_window.h"
#include "platform/win32/toolkit/top_window.h"
#include "toolkit/surface.h"

namespace quorvale {

// A picture box's window: a child of its form's window, or of any other that it is moved into. It copies
// what has changed of the toolkit's surface straight to the screen.
class SurfaceWindow : public NativeWindow, public Presenter {
 public:
  // All of them outlive the window.
  SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events);

  float Scale() const { return scale_; }
  void SetBounds(const PixelRect& bounds);

  bool IsInSight() const override;

 private:
  void PostPresent() override;
  void Show(const std::vector<PixelRect>& dirty) override;
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void Paint();
  void FollowScale();

  TopWindow& top_;
  SurfaceEvents& events_;
  float scale_;
};

}  // namespace quorvale
