#pragma once

#include <memory>
#include <utility>

#include "platform/win32/toolkit/event_wait.h"
#include "platform/win32/toolkit/surface_window.h"
#include "toolkit/pace_account.h"
#include "toolkit/platform.h"

namespace quorvale {

// The pauses of one effect on one surface. Nothing is owed once the surface is gone or out of sight, so that
// an effect that nobody can see is over in a moment.
class Win32PacedRun : public PacedRun {
 public:
  // `wait` outlives the run.
  Win32PacedRun(std::weak_ptr<SurfaceWindow> surface, const PassLengths& lengths, EventWait& wait)
      : surface_(std::move(surface)), lengths_(lengths), wait_(wait) {}

  void PumpEvents() override;

 private:
  std::weak_ptr<SurfaceWindow> surface_;
  PassLengths lengths_;
  EventWait& wait_;
  PaceAccount account_;
};

}  // namespace quorvale
