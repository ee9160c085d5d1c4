#include "toolkit/nonvisual_controls.h"

#include <cmath>
#include <utility>

#include "base/failure.h"
#include "toolkit/form.h"

namespace quorvale {
namespace {

constexpr int kShortestInterval = 1;
constexpr int kLongestInterval = 65'535;

// Marks a handler as running for the time of its scope.
class Running {
 public:
  explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
  ~Running() { flag_ = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& flag_;
};

}  // namespace

Timer::Timer(Form& parent, std::string name, int interval) : Control(parent, std::move(name)), interval_(interval) {}

void Timer::SetEnabled(bool enabled) {
  RequireLoaded();
  enabled_ = enabled;
  Restart();
}

void Timer::SetInterval(double milliseconds) {
  RequireLoaded();
  const double rounded = std::nearbyint(milliseconds);
  if (!(rounded >= 0 && rounded <= kLongestInterval)) {
    throw Failure(FailureNumber::kInvalidValue, "Invalid timer interval", Name());
  }
  interval_ = static_cast<int>(rounded);
  Restart();
}

void Timer::FireSoon() {
  RequireLoaded();
  if (!enabled_) return;
  is_early_ = true;
  peer_->Set(kShortestInterval);
}

void Timer::CreatePeer() {
  peer_ = App().GetPlatform().CreateTimerPeer([this] { Fire(); });
  Restart();
}

void Timer::ReleasePeer() {
  if (!peer_) return;
  peer_->Set(0);
  App().KeepUntilIdle(std::move(peer_));
}

void Timer::Fire() {
  // The platform may deliver an event that was due before the timer was stopped.
  if (!Parent().IsLoaded() || !enabled_ || running_ || !Elapsed) return;
  if (is_early_) Restart();
  App().Dispatch([this, form = Parent().shared_from_this()] {
    const Running running(running_);
    Elapsed();
  });
}

void Timer::Restart() {
  is_early_ = false;
  peer_->Set(enabled_ ? interval_ : 0);
}

void MessageHook::SetHwnd(WindowHandle window) {
  RequireLoaded();
  peer_->Watch(window);
}

void MessageHook::Report(int message) {
  RequireLoaded();
  peer_->Report(message);
}

void MessageHook::CreatePeer() {
  peer_ = App().GetPlatform().CreateMessageHookPeer([this](int message) { Arrived(message); });
}

void MessageHook::ReleasePeer() {
  if (peer_) App().KeepUntilIdle(std::move(peer_));
}

void MessageHook::Arrived(int message) {
  if (!Parent().IsLoaded() || !Message) return;
  App().Dispatch([this, message, form = Parent().shared_from_this()] { Message(message); });
}

}  // namespace quorvale
