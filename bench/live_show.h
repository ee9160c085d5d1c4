#pragma once

#include <memory>

#include "desktop_process.h"
#include "measure.h"
#include "saver/main_form.h"
#include "yardstick/x_display.h"

namespace quorvale {

// The show's own form on the real screen, with ticks on demand. Takes its options from the store.
class LiveShow {
 public:
  // `display` outlives it.
  explicit LiveShow(XDisplay& display, const PassLengths& pass_lengths = {});

  Process& Core() { return desktop_.core; }
  MainForm& Form() { return *form_; }

  // Lets the timer fire. Gives the milliseconds from its event to the picture's being on the screen, and
  // fails unless it really is there.
  double Tick();

  // Presents what is drawn; returns when the X server has it.
  void Present();

 private:
  void RequirePicture();

  XDisplay& display_;
  DesktopProcess desktop_;
  std::shared_ptr<MainForm> form_;
  Stopwatch since_event_;
  bool ticked_ = false;
};

}  // namespace quorvale
