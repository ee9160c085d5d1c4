#pragma once

#include <exception>
#include <utility>

namespace quorvale {

// Writes to the platform's log that an event was dropped, and why. Each platform defines it.
void LogDroppedEvent(const char* reason) noexcept;

// Hands an event to the toolkit. No window system can take an exception. The toolkit lets no failure out of a handler;
// what still comes, such as memory running out while the failure is shown, ends here.
template <typename Handler>
void Deliver(Handler&& handler) noexcept {
  try {
    std::forward<Handler>(handler)();
  } catch (const std::exception& failure) {
    LogDroppedEvent(failure.what());
  }
}

}  // namespace quorvale
