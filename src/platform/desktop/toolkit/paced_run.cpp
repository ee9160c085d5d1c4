#include "platform/desktop/toolkit/paced_run.h"

#include <QCoreApplication>
#include <QEvent>
#include <chrono>
#include <cstdint>

namespace quorvale {
namespace {

constexpr auto kBetweenUnseenPasses = std::chrono::milliseconds(1);

}  // namespace

void RunPass() {
  QCoreApplication::processEvents();
  // The loop that these wait for may never be reached again.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QtPacedRun::QtPacedRun(Presenter& surface, const PassLengths& lengths, EventWait& wait)
    : alive_(&surface.Object()), surface_(surface), lengths_(lengths), wait_(wait) {}

void QtPacedRun::PumpEvents() {
  const auto start = std::chrono::steady_clock::now();
  if (!IsInSight()) {
    // The slowest effect makes a million passes, which take a second even when nothing waits in them.
    account_.Forget();
    if (start < next_unseen_pass_) return;
    next_unseen_pass_ = start + kBetweenUnseenPasses;
    RunPass();
    return;
  }
  const std::uint64_t presented = surface_.Presentations();
  RunPass();
  if (!IsInSight()) {
    account_.Forget();
    return;
  }
  const bool has_presented = surface_.Presentations() != presented;
  account_.AddPass(has_presented ? lengths_.presenting : lengths_.empty, std::chrono::steady_clock::now() - start);
  const PaceAccount::Duration due = account_.Due();
  if (due > PaceAccount::Duration::zero()) account_.Waited(wait_.Wait(due));
}

}  // namespace quorvale
