#include "show/turns.h"

#include <algorithm>

#include "toolkit/nonvisual_controls.h"

namespace quorvale {

// A tick from its beginning to its end. Then it is the next timer's turn.
class Turns::Running {
 public:
  explicit Running(Turns& turns) : turns_(turns) { turns_.is_running_ = true; }
  ~Running() {
    turns_.is_running_ = false;
    if (turns_.waiting_.empty()) return;
    Timer* const next = turns_.waiting_.front();
    turns_.waiting_.pop_front();
    next->FireSoon();
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  Turns& turns_;
};

void Turns::Take(Timer& timer, const std::function<void()>& tick) {
  if (is_running_) {
    Wait(timer);
    return;
  }
  Leave(timer);
  const Running running(*this);
  tick();
}

void Turns::Wait(Timer& timer) {
  if (std::ranges::find(waiting_, &timer) == waiting_.end()) waiting_.push_back(&timer);
}

void Turns::Leave(Timer& timer) { std::erase(waiting_, &timer); }

}  // namespace quorvale
