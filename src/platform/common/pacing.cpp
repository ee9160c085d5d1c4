#include "platform/common/pacing.h"

#include <algorithm>
#include <cstdint>

namespace quorvale {
namespace {

constexpr auto kBetweenUnpacedPasses = std::chrono::milliseconds(1);

}  // namespace

bool EndedLoops::Any() const {
  return std::ranges::any_of(running_, [](const auto& has_ended) { return has_ended(); });
}

bool PresenterPacedRun::IsPaced() const {
  const auto presenter = presenter_.lock();
  return presenter && presenter->IsInSight() && !ended_loops_.Any();
}

std::uint64_t PresenterPacedRun::Presentations() const {
  const auto presenter = presenter_.lock();
  return presenter ? presenter->Presentations() : 0;
}

void PresenterPacedRun::PumpEvents() {
  const auto start = std::chrono::steady_clock::now();
  if (!IsPaced()) {
    // The slowest effect makes a million passes, which take a second even without pauses.
    account_.Forget();
    if (start < next_unpaced_pass_) return;
    next_unpaced_pass_ = start + kBetweenUnpacedPasses;
    pump_.RunPass();
    return;
  }
  const std::uint64_t presented = Presentations();
  pump_.RunPass();
  if (!IsPaced()) {
    account_.Forget();
    return;
  }
  const bool has_presented = Presentations() != presented;
  account_.AddPass(has_presented ? lengths_.presenting : lengths_.empty, std::chrono::steady_clock::now() - start);
  const PaceAccount::Duration due = account_.Due();
  if (due > PaceAccount::Duration::zero()) account_.Waited(pump_.Wait(due));
}

}  // namespace quorvale
