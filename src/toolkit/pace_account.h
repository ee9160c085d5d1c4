#pragma once

#include <algorithm>
#include <chrono>

namespace quorvale {

// The minimum duration of an effect's passes. A pass over an empty queue takes less than a microsecond, so without a
// minimum even the slowest effect would be over at once.
struct PassLengths {
  std::chrono::nanoseconds empty = std::chrono::microseconds(25);
  std::chrono::nanoseconds presenting = std::chrono::milliseconds(1);
};

// Sums up how much faster the passes of one effect were than their nominal length.
class PaceAccount {
 public:
  using Duration = std::chrono::nanoseconds;

  // Adds a pass of length `nominal` that took `took`. A slow pass is not credited.
  void AddPass(Duration nominal, Duration took) { owed_ += std::max(Duration::zero(), nominal - took); }

  // How long to wait now. Short waits are saved up, because timers are too coarse for them.
  Duration Due() const { return owed_ >= kShortestWait ? owed_ : Duration::zero(); }

  // Records a wait. A timer's overshoot shortens the next wait, but only up to a limit: events can prolong a wait much
  // more.
  void Waited(Duration time) { owed_ = std::max(owed_ - time, -kMostOvershoot); }

  void Forget() { owed_ = Duration::zero(); }

 private:
  static constexpr Duration kShortestWait = std::chrono::milliseconds(1);
  static constexpr Duration kMostOvershoot = std::chrono::milliseconds(1);

  Duration owed_ = Duration::zero();
};

}  // namespace quorvale
