#include "platform/headless/event_queue.h"

#include <algorithm>
#include <utility>

namespace quorvale {

class EventQueue::Timer : public TimerPeer {
 public:
  Timer(EventQueue& queue, std::function<void()> fired) : queue_(queue), fired_(std::move(fired)) {
    queue_.timers_.push_back(this);
  }
  ~Timer() override { std::erase(queue_.timers_, this); }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  void Set(int milliseconds) override {
    interval_ = MicrosecondsOf(milliseconds);
    due_ = queue_.now_ + interval_;
  }

  bool Running() const { return interval_ > 0; }
  std::int64_t Due() const { return due_; }

  void Fire() {
    due_ = queue_.now_ + interval_;
    // The handler may destroy this object.
    const std::function<void()> fired = fired_;
    fired();
  }

 private:
  EventQueue& queue_;
  std::function<void()> fired_;
  std::int64_t interval_ = 0;
  std::int64_t due_ = 0;
};

void EventQueue::Pump() {
  ++pump_count_;
  now_ += per_pump_;
  while (!planned_.empty() && planned_.begin()->first <= pump_count_) {
    const auto action = planned_.extract(planned_.begin());
    action.mapped()();
  }
  RunPosted();
  while (FireOne(now_)) {
  }
  if (pass_ending) pass_ending();
}

void EventQueue::Post(std::function<void()> event) { posted_.push_back(std::move(event)); }

void EventQueue::AtPump(int count, std::function<void()> action) {
  planned_.emplace(pump_count_ + count, std::move(action));
}

void EventQueue::Forget() {
  planned_.clear();
  posted_.clear();
}

void EventQueue::Advance(int milliseconds) {
  const std::int64_t end = now_ + MicrosecondsOf(milliseconds);
  do {
    RunPosted();
  } while (FireOne(end));
  now_ = std::max(now_, end);
  if (pass_ending) pass_ending();
}

std::unique_ptr<TimerPeer> EventQueue::CreateTimer(std::function<void()> fired) {
  return std::make_unique<Timer>(*this, std::move(fired));
}

int EventQueue::RunningTimers() const {
  return static_cast<int>(
      std::count_if(timers_.begin(), timers_.end(), [](const Timer* timer) { return timer->Running(); }));
}

void EventQueue::RunPosted() {
  // Events that these events post run in the next pass.
  for (std::size_t left = posted_.size(); left > 0 && !posted_.empty(); --left) {
    const auto event = std::move(posted_.front());
    posted_.pop_front();
    event();
  }
}

bool EventQueue::FireOne(std::int64_t time) {
  Timer* first = nullptr;
  for (Timer* const timer : timers_) {
    if (timer->Running() && timer->Due() <= time && (first == nullptr || timer->Due() < first->Due())) first = timer;
  }
  if (first == nullptr) return false;
  now_ = std::max(now_, first->Due());
  first->Fire();
  return true;
}

}  // namespace quorvale
