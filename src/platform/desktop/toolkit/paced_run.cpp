#include "platform/desktop/toolkit/paced_run.h"

#include <QCoreApplication>
#include <QEvent>
#include <chrono>
#include <cstdint>

namespace quorvale {
namespace {

constexpr auto kBetweenUnpacedPasses = std::chrono::milliseconds(1);

}  // namespace

void RunPass() {
  QCoreApplication::processEvents();
  // The loop that these wait for may never be reached again.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QtPacedRun::QtPacedRun(Presenter& surface, const PassLengths& lengths, EventWait& wait, const EndedLoops& ended_loops)
    : alive_(&surface.Object()), surface_(surface), lengths_(lengths), wait_(wait), ended_loops_(ended_loops) {}

void QtPacedRun::PumpEvents() {
  const auto start = std::chrono::steady_clock::now();
  if (!IsPaced()) {
    // The slowest effect makes a million passes, which take a second even when nothing waits in them.
    account_.Forget();
    if (start < next_unpaced_pass_) return;
    next_unpaced_pass_ = start + kBetweenUnpacedPasses;
    RunPass();
    return;
  }
  const std::uint64_t presented = surface_.Presentations();
  RunPass();
  if (!IsPaced()) {
    account_.Forget();
    return;
  }
  const bool has_presented = surface_.Presentations() != presented;
  account_.AddPass(has_presented ? lengths_.presenting : lengths_.empty, std::chrono::steady_clock::now() - start);
  const PaceAccount::Duration due = account_.Due();
  if (due > PaceAccount::Duration::zero()) account_.Waited(wait_.Wait(due));
}

}  // namespace quorvale
