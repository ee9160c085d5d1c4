#pragma once

#include <algorithm>
#include <chrono>

namespace quorvale {

// How long the passes of an effect take at least. A bare pass over an empty queue takes less than a
// microsecond, so that the slowest speed of an effect would look like none.
struct PassLengths {
  std::chrono::nanoseconds empty = std::chrono::microseconds(25);
  std::chrono::nanoseconds presenting = std::chrono::milliseconds(1);
};

// What the passes of one effect owe to their nominal length.
class PaceAccount {
 public:
  using Duration = std::chrono::nanoseconds;

  // A pass of that nominal length took so long. A slow one earns no credit.
  void AddPass(Duration nominal, Duration took) { owed_ += std::max(Duration::zero(), nominal - took); }

  // How long to wait now: shorter pauses are saved up, since no timer is good at them.
  Duration Due() const { return owed_ >= kShortestWait ? owed_ : Duration::zero(); }

  // What a timer overshoots is taken off the next wait, but a wait that an event has dragged out earns no
  // credit either.
  void Waited(Duration time) { owed_ = std::max(owed_ - time, -kMostOvershoot); }

  void Forget() { owed_ = Duration::zero(); }

 private:
  static constexpr Duration kShortestWait = std::chrono::milliseconds(1);
  static constexpr Duration kMostOvershoot = std::chrono::milliseconds(1);

  Duration owed_ = Duration::zero();
};

}  // namespace quorvale
