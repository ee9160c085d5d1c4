#pragma once

#include <chrono>
#include <optional>

#include "platform/common/pacing.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/windows_api.h"

namespace quorvale {

// Waits for events for a time that is exact to a fraction of a millisecond where the system has such timers,
// and to a millisecond elsewhere; its usual 16 would make an effect crawl.
class EventWait : public EventPump {
 public:
  EventWait();
  ~EventWait() override;
  EventWait(const EventWait&) = delete;
  EventWait& operator=(const EventWait&) = delete;

  void RunPass() override;
  std::chrono::nanoseconds Wait(std::chrono::nanoseconds time) override;

 private:
  HANDLE timer_;
  // Where the system's clock had to be sped up.
  std::optional<LoadedLibrary> multimedia_;
};

}  // namespace quorvale
