#include "platform/desktop/toolkit/paced_run.h"

#include <QCoreApplication>
#include <QEvent>
#include <chrono>
#include <cstdint>

namespace quorvale {

void RunPass() {
  QCoreApplication::processEvents();
  // The loop that these wait for may never be reached again.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QtPacedRun::QtPacedRun(SurfaceWindow& surface, const PassLengths& lengths, EventWait& wait)
    : surface_(&surface), lengths_(lengths), wait_(wait) {}

void QtPacedRun::PumpEvents() {
  const auto start = std::chrono::steady_clock::now();
  const std::uint64_t presented = surface_ ? surface_->Presentations() : 0;
  RunPass();
  if (!IsInSight()) {
    account_.Forget();
    return;
  }
  const bool has_presented = surface_->Presentations() != presented;
  account_.AddPass(has_presented ? lengths_.presenting : lengths_.empty, std::chrono::steady_clock::now() - start);
  const PaceAccount::Duration due = account_.Due();
  if (due > PaceAccount::Duration::zero()) account_.Waited(wait_.Wait(due));
}

}  // namespace quorvale
