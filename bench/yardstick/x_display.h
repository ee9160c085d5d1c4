#pragma once

#include <sys/types.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

#include "toolkit/bitmap.h"

namespace quorvale {

// Returns when the server has done all requests of this connection.
void RoundTrip(xcb_connection_t* connection);

// A connection to the X server that DISPLAY names, which also reads its screen.
class XDisplay {
 public:
  // Fails with kNotFound.
  XDisplay();
  ~XDisplay();
  XDisplay(const XDisplay&) = delete;
  XDisplay& operator=(const XDisplay&) = delete;

  xcb_connection_t* Connection() const { return connection_; }
  const xcb_screen_t& Screen() const { return *screen_; }
  int Width() const { return screen_->width_in_pixels; }
  int Height() const { return screen_->height_in_pixels; }
  // The server's process, on this machine.
  pid_t Server() const;

  // The colour of the bare screen.
  void SetBackground(Pixel colour);
  // What the user sees in the middle of the screen at this moment.
  Pixel Centre() const;

 private:
  xcb_connection_t* connection_;
  xcb_screen_t* screen_ = nullptr;
};

// A window over the whole screen that gets its pixels through memory shared with the X server, which is the fastest
// way. It starts hidden.
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
