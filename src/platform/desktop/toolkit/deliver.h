#pragma once

#include <QtGlobal>
#include <exception>
#include <utility>

namespace quorvale {

// Hands an event to the toolkit. Qt can't take an exception: the toolkit lets no failure out of a handler,
// and what still comes, memory that has run out while the failure was shown, ends here.
template <typename Handler>
void Deliver(Handler&& handler) noexcept {
  try {
    std::forward<Handler>(handler)();
  } catch (const std::exception& failure) {
    qWarning("An event was dropped: %s", failure.what());
  }
}

}  // namespace quorvale
