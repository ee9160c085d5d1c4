#pragma once

#include <exception>
#include <utility>

#include "platform/win32/windows_api.h"

namespace quorvale {

// Runs what a procedure of ours does for the system, which can't take an exception. The toolkit lets no
// failure out of a handler; what still comes, memory that has run out while the failure was shown, ends here.
template <typename Handler>
void Deliver(Handler&& handler) noexcept {
  try {
    std::forward<Handler>(handler)();
  } catch (const std::exception& failure) {
    OutputDebugStringA(failure.what());
  }
}

}  // namespace quorvale
