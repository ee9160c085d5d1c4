#pragma once

#include <xcb/shm.h>

#include "toolkit/pixel_view.h"
#include "yardstick/x_display.h"

namespace quorvale {

// A window over the whole screen that gets its pixels through memory shared with the X server, the fastest
// way there is. It starts hidden.
class SharedWindow {
 public:
  // `display` outlives it.
  explicit SharedWindow(XDisplay& display);
  ~SharedWindow();
  SharedWindow(const SharedWindow&) = delete;
  SharedWindow& operator=(const SharedWindow&) = delete;

  PixelView Pixels() const { return {pixels_, display_.Width(), display_.Height(), display_.Width()}; }
  void SetVisible(bool visible);
  // Returns when the pixels are on the screen.
  void Put();

 private:
  XDisplay& display_;
  xcb_window_t window_;
  xcb_gcontext_t context_;
  xcb_shm_seg_t segment_;
  Pixel* pixels_ = nullptr;
};

}  // namespace quorvale
