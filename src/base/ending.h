#pragma once

namespace quorvale {

// Thrown by platforms that can't end the process at once, such as the headless one. It has no base class, so that code
// which handles failures lets it pass, up to the caller of the program. A `catch (...)` must rethrow it.
struct ProcessEnded {};

}  // namespace quorvale
