#pragma once

#include <chrono>

#include "platform/win32/windows_api.h"

namespace quorvale {

// Waits for events for a time that is exact to a fraction of a millisecond where the system has such timers,
// and to a millisecond elsewhere; its usual 16 would make an effect crawl.
class EventWait {
 public:
  EventWait();
  ~EventWait();
  EventWait(const EventWait&) = delete;
  EventWait& operator=(const EventWait&) = delete;

  // Sleeps until there is an event or that much time has passed, and delivers what there is. Gives the time
  // that it took, handlers included.
  std::chrono::nanoseconds Wait(std::chrono::nanoseconds time);

 private:
  HANDLE timer_;
  bool is_system_sped_up_ = false;
};

}  // namespace quorvale
