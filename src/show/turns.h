#pragma once

#include <deque>
#include <functional>

namespace quorvale {

class Timer;

// The ticks of several forms of one show, one at a time. An effect pumps events, and another form's timer may fire
// then; its tick has to wait, because both take their pictures from one list.
class Turns {
 public:
  // Call it when a form's timer fires. Runs `tick`, or makes the timer wait.
  void Take(Timer& timer, const std::function<void()>& tick);
  // Makes the timer fire again when its turn comes: after a tick of another form, the longest waiting one first.
  void Wait(Timer& timer);
  // Forgets a timer that waits. To be called before its form goes.
  void Leave(Timer& timer);

 private:
  class Running;

  bool is_running_ = false;
  std::deque<Timer*> waiting_;
};

}  // namespace quorvale
