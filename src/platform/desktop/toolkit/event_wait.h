#pragma once

#include <QSocketNotifier>
#include <chrono>
#include <optional>

#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// Waits for events for a time that is exact to some hundredths of a millisecond, which the event loop's own
// timers, with their whole milliseconds, are not.
class EventWait {
 public:
  EventWait();

  // Sleeps until there is an event or that much time has passed, and delivers what there is. Gives the time
  // that it took, handlers included.
  std::chrono::nanoseconds Wait(std::chrono::nanoseconds time);

 private:
  void Arm(std::chrono::nanoseconds time);

  FileDescriptor timer_;
  std::optional<QSocketNotifier> notifier_;
};

}  // namespace quorvale
