#pragma once

#include <QSocketNotifier>
#include <chrono>
#include <optional>

#include "platform/common/pacing.h"
#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// Waits for events for a time that is exact to some hundredths of a millisecond, which the event loop's own
// timers, with their whole milliseconds, are not.
class EventWait : public EventPump {
 public:
  EventWait();

  // Deferred deletions included.
  void RunPass() override;
  std::chrono::nanoseconds Wait(std::chrono::nanoseconds time) override;

 private:
  void Arm(std::chrono::nanoseconds time);

  FileDescriptor timer_;
  std::optional<QSocketNotifier> notifier_;
};

}  // namespace quorvale
