#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "toolkit/platform.h"

namespace quorvale {

// The event queue of the one thread, on a clock that only moves when it is told to. Passes may nest.
class EventQueue {
 public:
  // Called at the end of each pass, when the screen is brought up to date.
  std::function<void()> PassEnding;

  // One pass: the actions planned for it, the events posted before it, the timers that are due.
  void Pump();
  // Passes so far.
  std::int64_t PumpCount() const { return pump_count_; }

  // Runs `event` in the next pass, or when the clock is next advanced.
  void Post(std::function<void()> event);
  // Runs `action` at the beginning of the `count`-th pass from now; 1 is the next one.
  void AtPump(int count, std::function<void()> action);
  // What was planned and posted and has not run is forgotten.
  void Forget();

  // Moves the clock on, delivers what is posted and fires each timer at its own time, in order of time.
  void Advance(int milliseconds);
  // Moves the clock on as a busy program does: what became due fires in the next pass.
  void Skip(int milliseconds) { now_ += MicrosecondsOf(milliseconds); }
  // Lets each pass take that long. None at first.
  void SetMicrosecondsPerPump(std::int64_t microseconds) { per_pump_ = microseconds; }
  // Time since the clock began.
  std::int64_t Microseconds() const { return now_; }
  double Milliseconds() const { return static_cast<double>(now_) / 1000; }

  std::unique_ptr<TimerPeer> CreateTimer(std::function<void()> fired);
  // Timers that are counting down.
  int RunningTimers() const;

 private:
  class Timer;
  static std::int64_t MicrosecondsOf(int milliseconds) { return std::int64_t{1000} * milliseconds; }

  void RunPosted();
  // Fires the first timer that is due at `time`; false when there is none.
  bool FireOne(std::int64_t time);

  std::int64_t now_ = 0;
  std::int64_t per_pump_ = 0;
  std::int64_t pump_count_ = 0;
  std::deque<std::function<void()>> posted_;
  std::multimap<std::int64_t, std::function<void()>> planned_;
  std::vector<Timer*> timers_;
};

}  // namespace quorvale
