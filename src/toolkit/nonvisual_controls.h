#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "system/window_system.h"
#include "toolkit/control.h"
#include "toolkit/platform.h"

namespace quorvale {

// Fires periodically while it is enabled. Events that come while its handler is still running are dropped.
class Timer : public Control {
 public:
  // `interval` in milliseconds; the timer starts disabled.
  Timer(Form& parent, std::string name, int interval);

  std::function<void()> Elapsed;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  // In milliseconds, 0 to 65,535; 0 stops the timer. Setting it restarts the countdown. Outside that range it fails
  // with kInvalidValue and keeps the old interval.
  int Interval() const { return interval_; }
  void SetInterval(double milliseconds);

  // Fires as soon as the event queue comes to it, and then again after the interval. Does nothing while disabled.
  void FireSoon();

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  void Fire();
  void Restart();

  bool enabled_ = false;
  bool running_ = false;
  bool is_early_ = false;
  int interval_;
  std::unique_ptr<TimerPeer> peer_;
};

// Numbers of window messages that hooks can report.
inline constexpr int kWmClose = 16;
inline constexpr int kWmExitMenuLoop = 530;

// Reports selected messages that arrive at one window of this program.
class MessageHook : public Control {
 public:
  MessageHook(Form& parent, std::string name) : Control(parent, std::move(name)) {}

  std::function<void(int message)> Message;

  // Watches `window` instead of any other from now on. Fails with kNotLoaded.
  void SetHwnd(WindowHandle window);
  // Adds `message` to the reported ones. Fails with kNotLoaded.
  void Report(int message);

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  void Arrived(int message);

  std::unique_ptr<MessageHookPeer> peer_;
};

}  // namespace quorvale
