#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "platform/common/pacing.h"
#include "platform/win32/system/modules.h"

namespace quorvale {

// Handles all pending messages.
void RunPass();

// Waits for messages and handles them until `over`, which is called after each, or until the program is to end.
void RunEventsUntil(const std::function<bool()>& over);

// Handles messages until `EndEventLoop`. Returns the program's exit code.
int RunEventLoop();
void EndEventLoop();

// Waits for messages for a time that is exact to a fraction of a millisecond if the system has such timers, else to a
// millisecond. The default resolution of 16 ms would slow effects down to a crawl.
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
  // Loaded only if the system's clock had to be sped up.
  std::optional<LoadedLibrary> multimedia_;
};

}  // namespace quorvale
