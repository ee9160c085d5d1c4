#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "toolkit/platform.h"

namespace quorvale {

// The event queue of the main thread, with a virtual clock. Passes may nest.
class EventQueue {
 public:
  // Called at the end of each pass, to present what has changed.
  std::function<void()> pass_ending;

  // Runs one pass: the actions planned for it, the events posted before it, and the timers that are due.
  void Pump();
  // The number of passes so far.
  std::int64_t PumpCount() const { return pump_count_; }

  // Runs `event` in the next pass, or at the next `Advance`.
  void Post(std::function<void()> event);
  // Runs `action` at the start of the `count`-th pass from now; 1 is the next one.
  void AtPump(int count, std::function<void()> action);
  // Discards planned actions and posted events that have not run.
  void Forget();

  // Advances the clock, delivers posted events, and fires each timer at its own time, in order of time.
  void Advance(int milliseconds);
  // Advances the clock without delivering events, as a busy program does. Timers that are due fire in the next pass.
  void Skip(int milliseconds) { now_ += MicrosecondsOf(milliseconds); }
  // Sets how long a pass takes. 0 at first.
  void SetMicrosecondsPerPump(std::int64_t microseconds) { per_pump_ = microseconds; }
  // The time on the clock, which starts at 0.
  std::int64_t Microseconds() const { return now_; }
  double Milliseconds() const { return static_cast<double>(now_) / 1000; }

  std::unique_ptr<TimerPeer> CreateTimer(std::function<void()> fired);
  // The number of timers that are counting down.
  int RunningTimers() const;

 private:
  class Timer;
  static std::int64_t MicrosecondsOf(int milliseconds) { return std::int64_t{1000} * milliseconds; }

  void RunPosted();
  // Fires the timer that is due first, if that is not after `time`. Otherwise returns false.
  bool FireOne(std::int64_t time);

  std::int64_t now_ = 0;
  std::int64_t per_pump_ = 0;
  std::int64_t pump_count_ = 0;
  std::deque<std::function<void()>> posted_;
  std::multimap<std::int64_t, std::function<void()>> planned_;
  std::vector<Timer*> timers_;
};

}  // namespace quorvale
