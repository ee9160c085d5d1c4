#pragma once

#include <QObject>
#include <QPointer>
#include <chrono>

#include "platform/desktop/toolkit/event_wait.h"
#include "platform/desktop/toolkit/presenter.h"
#include "toolkit/pace_account.h"
#include "toolkit/platform.h"

namespace quorvale {

// One pass of the event queue: everything pending runs, deferred deletions included.
void RunPass();

// The pauses of one effect on one surface. Nothing is owed once the surface is gone or out of sight, so that
// an effect that nobody can see is over in a moment.
class QtPacedRun : public PacedRun {
 public:
  // `wait` outlives the run.
  QtPacedRun(Presenter& surface, const PassLengths& lengths, EventWait& wait);

  void PumpEvents() override;

 private:
  bool IsInSight() const { return alive_ && surface_.IsInSight(); }

  QPointer<QObject> alive_;
  const Presenter& surface_;
  PassLengths lengths_;
  EventWait& wait_;
  PaceAccount account_;
  std::chrono::steady_clock::time_point next_unseen_pass_;
};

}  // namespace quorvale
