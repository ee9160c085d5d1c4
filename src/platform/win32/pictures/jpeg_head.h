#pragma once

#include <cstdint>
#include <span>

namespace quorvale {

// What the segments ahead of a JPEG file's pixels tell.
struct JpegHead {
  // In several scans, which a decoder puts together in memory.
  bool has_several_scans = false;
  // As cameras store it, 1 to 8.
  int orientation = 1;
};

// That of any other file is the one of none.
JpegHead ReadJpegHead(std::span<const std::uint8_t> bytes);

}  // namespace quorvale
