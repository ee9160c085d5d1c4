#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/pictures/byte_source.h"
#include "platform/pictures/rendered_picture.h"
#include "toolkit/bitmap.h"

// ICC profiles in picture files, apart from what the system's colour library does.

namespace quorvale {

// Longer profiles are ignored. Those of cameras and scanners take from 500 bytes to 2 MiB.
inline constexpr std::size_t kLongestProfile = std::size_t{4} << 20U;

// The ICC profile of a JPEG file, which may be spread over several segments. Empty without one, or if a piece is
// missing.
std::vector<std::uint8_t> JpegProfile(ByteSource& bytes);

// Applies a conversion of opaque pixels to a row whose colours are premultiplied.
void ConvertUnmultiplied(std::span<Pixel> row, const ColourConversion& convert);

}  // namespace quorvale
