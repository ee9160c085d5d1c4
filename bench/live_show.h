#pragma once

#include <memory>

#include "desktop_process.h"
#include "measure.h"
#include "show/show_form.h"
#include "system/window_system.h"
#include "yardstick/x_display.h"

namespace quorvale {

// The show on the real screen, with ticks on demand. Takes its options from the store.
class LiveShow {
 public:
  // `display` outlives it. With a `host`, a window in the middle of the screen, it is the preview in that one.
  explicit LiveShow(XDisplay& display, const PassLengths& pass_lengths = {}, WindowHandle host = 0);

  Process& Core() { return desktop_.core; }
  ShowForm& Form() { return *form_; }

  // Lets the timer fire. Gives the milliseconds from its event to the picture's being on the screen, and
  // fails unless it really is there.
  double Tick();

  // Presents what is drawn; returns when the X server has it.
  void Present();

 private:
  void ShowForms(WindowHandle host);
  void RequirePicture();

  XDisplay& display_;
  DesktopProcess desktop_;
  std::shared_ptr<ShowForm> form_;
  Stopwatch since_event_;
  bool ticked_ = false;
};

}  // namespace quorvale
