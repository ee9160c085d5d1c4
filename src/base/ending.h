#pragma once

namespace quorvale {

// Thrown where a platform can't end the process on the spot, as on the headless one. It is no failure
// and derives from nothing, so that it passes through every rule for failures up to whoever runs the
// program. Never catch it by `catch (...)` without throwing it on.
struct ProcessEnded {};

}  // namespace quorvale
