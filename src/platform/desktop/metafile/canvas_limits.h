#pragma once

namespace quorvale {

// Pixels of the target: far outside of any screen, and well inside what the painter can take.
inline constexpr double kFarthest = 1 << 20U;

}  // namespace quorvale
