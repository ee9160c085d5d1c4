#pragma once

#include <chrono>
#include <optional>

#include "platform/win32/loaded_library.h"
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
  // Where the system's clock had to be sped up.
  std::optional<LoadedLibrary> multimedia_;
};

}  // namespace quorvale
