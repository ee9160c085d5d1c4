#pragma once

#include <functional>
#include <memory>
#include <string>

#include "toolkit/control.h"
#include "toolkit/platform.h"

namespace quorvale {

// Fires again and again while it is enabled. An event that comes while the last one's handler is still
// running is dropped.
class Timer : public Control {
 public:
  // `interval` in milliseconds; the timer starts disabled.
  Timer(Form& parent, std::string name, int interval);

  std::function<void()> Elapsed;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  // In milliseconds, 0 to 65,535; 0 stops the timer. Setting it starts the countdown anew. Fails with
  // kInvalidValue outside that range, and keeps the interval that it had.
  int Interval() const { return interval_; }
  void SetInterval(double milliseconds);

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  void Fire();
  void Restart();

  bool enabled_ = false;
  bool running_ = false;
  int interval_;
  std::unique_ptr<TimerPeer> peer_;
};

}  // namespace quorvale
