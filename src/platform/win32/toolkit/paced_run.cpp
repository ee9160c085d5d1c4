#include "platform/win32/toolkit/paced_run.h"

#include <chrono>
#include <cstdint>

#include "platform/win32/toolkit/event_loop.h"

namespace quorvale {
namespace {

// None for a surface that is gone. The pointer is let go of at once: the surface may end in the pass.
std::uint64_t PresentationsOf(const std::weak_ptr<SurfaceWindow>& surface) {
  const auto window = surface.lock();
  return window ? window->Presentations() : 0;
}

bool IsInSight(const std::weak_ptr<SurfaceWindow>& surface) {
  const auto window = surface.lock();
  return window && window->IsInSight();
}

}  // namespace

void Win32PacedRun::PumpEvents() {
  const auto start = std::chrono::steady_clock::now();
  const std::uint64_t presented = PresentationsOf(surface_);
  RunPass();
  if (!IsInSight(surface_)) {
    account_.Forget();
    return;
  }
  const bool has_presented = PresentationsOf(surface_) != presented;
  account_.AddPass(has_presented ? lengths_.presenting : lengths_.empty, std::chrono::steady_clock::now() - start);
  const PaceAccount::Duration due = account_.Due();
  if (due > PaceAccount::Duration::zero()) account_.Waited(wait_.Wait(due));
}

}  // namespace quorvale
