#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <functional>
#include <optional>

#include "platform/common/pacing.h"
#include "platform/desktop/system/files.h"
#include "toolkit/platform.h"

namespace quorvale {

// Qt's event queue. It waits to some hundredths of a millisecond; Qt's own timers only know whole milliseconds.
class EventLoop : public EventPump {
 public:
  EventLoop();

  // Deferred deletions included.
  void RunPass() override;
  std::chrono::nanoseconds Wait(std::chrono::nanoseconds time) override;

 private:
  void Arm(std::chrono::nanoseconds time);

  FileDescriptor timer_;
  std::optional<QSocketNotifier> notifier_;
};

class QtTimerPeer : public TimerPeer {
 public:
  explicit QtTimerPeer(std::function<void()> fired);

  void Set(int milliseconds) override;

 private:
  QTimer timer_;
};

// Turns SIGTERM, SIGINT and SIGHUP into an event while it lives. One object at a time.
class EndingSignals {
 public:
  explicit EndingSignals(std::function<void()> arrived);
  ~EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

 private:
  FileDescriptor read_end_;
  FileDescriptor write_end_;
  std::optional<QSocketNotifier> notifier_;
};

}  // namespace quorvale
