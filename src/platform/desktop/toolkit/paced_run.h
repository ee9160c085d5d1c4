#pragma once

#include <QObject>
#include <QPointer>
#include <chrono>

#include "platform/desktop/toolkit/ended_loops.h"
#include "platform/desktop/toolkit/event_wait.h"
#include "platform/desktop/toolkit/presenter.h"
#include "toolkit/pace_account.h"
#include "toolkit/platform.h"

namespace quorvale {

// One pass of the event queue: everything pending runs, deferred deletions included.
void RunPass();

// The pauses of one effect on one surface. Nothing is owed once the surface is gone or out of sight, so that
// an effect that nobody can see is over in a moment; nor while a box that the user has answered waits for the effect.
class QtPacedRun : public PacedRun {
 public:
  // `wait` and `ended_loops` outlive the run.
  QtPacedRun(Presenter& surface, const PassLengths& lengths, EventWait& wait, const EndedLoops& ended_loops);

  void PumpEvents() override;

 private:
  bool IsPaced() const { return alive_ && surface_.IsInSight() && !ended_loops_.Any(); }

  QPointer<QObject> alive_;
  const Presenter& surface_;
  PassLengths lengths_;
  EventWait& wait_;
  const EndedLoops& ended_loops_;
  PaceAccount account_;
  std::chrono::steady_clock::time_point next_unpaced_pass_;
};

}  // namespace quorvale
