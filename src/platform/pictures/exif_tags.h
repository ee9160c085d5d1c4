#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace quorvale {

// The orientation in a JPEG file's segment of camera data, without the marker and length before it: 1 to 8, and 1
// where they don't tell. Nothing when the segment holds something else.
std::optional<int> OrientationInSegment(std::span<const std::uint8_t> segment);

}  // namespace quorvale
