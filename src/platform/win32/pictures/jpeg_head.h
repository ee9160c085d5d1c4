#pragma once

#include <cstdint>
#include <span>

namespace quorvale {

// Whether a JPEG file comes in several scans, which a decoder puts together in memory.
bool IsProgressiveJpeg(std::span<const std::uint8_t> bytes);

}  // namespace quorvale
