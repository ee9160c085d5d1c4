#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/common/presenter.h"
#include "toolkit/platform.h"

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

// The part of the platform's event queue that the pauses of effects need.
class EventPump {
 public:
  virtual ~EventPump() = default;
  // Runs everything that is pending.
  virtual void RunPass() = 0;
  // Sleeps until there is an event or the time has passed, and delivers what is pending. Returns the time that it took,
  // handlers included.
  virtual std::chrono::nanoseconds Wait(std::chrono::nanoseconds time) = 0;
};

// Keeps track of nested event loops. One that has to end can't while an effect that began inside it still runs above it
// on the stack.
class EndedLoops {
 public:
  bool Any() const;

  // One loop, from before its beginning until it has returned.
  class Loop {
   public:
    // `has_ended` returns whether the loop has to end. It is called between the passes of an effect.
    Loop(EndedLoops& loops, std::function<bool()> has_ended) : loops_(loops) {
      loops_.running_.push_back(std::move(has_ended));
    }
    ~Loop() { loops_.running_.pop_back(); }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

   private:
    EndedLoops& loops_;
  };

 private:
  std::vector<std::function<bool()>> running_;
};

// The pauses of one effect on one surface. There are none once the surface is gone or out of sight, so that an effect
// that nobody sees ends at once, and none while an answered box waits for the effect to end.
class PresenterPacedRun : public PacedRun {
 public:
  // `pump` and `ended_loops` outlive the run.
  PresenterPacedRun(const Presenter& presenter, const PassLengths& lengths, EventPump& pump,
                    const EndedLoops& ended_loops)
      : presenter_(presenter.Watch()), lengths_(lengths), pump_(pump), ended_loops_(ended_loops) {}

  void PumpEvents() override;

 private:
  bool IsPaced() const;
  // 0 if the surface is gone.
  std::uint64_t Presentations() const;

  std::weak_ptr<const Presenter> presenter_;
  PassLengths lengths_;
  EventPump& pump_;
  const EndedLoops& ended_loops_;
  PaceAccount account_;
  std::chrono::steady_clock::time_point next_unpaced_pass_;
};

}  // namespace quorvale
