#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/pictures/byte_source.h"

namespace quorvale {

// One of the segments in front of a JPEG file's pixels. The numbers of its kinds are those of ITU-T T.81, table B.1.
struct JpegSegment {
  std::uint8_t kind;
  // Of its data in the file, in bytes; a damaged file may end before.
  std::size_t offset;
  std::size_t size;
};

constexpr std::uint8_t kJpegApp1 = 0xE1;
constexpr std::uint8_t kJpegApp2 = 0xE2;

// Walks the segments of a JPEG file in their order.
class JpegSegments {
 public:
  // Stops after `most` segments, which bounds the search in other files. `bytes` outlives the walk.
  JpegSegments(ByteSource& bytes, int most) : bytes_(bytes), left_(most) {}

  // None where the pixels begin, or what is no segment.
  std::optional<JpegSegment> Next();

 private:
  ByteSource& bytes_;
  int left_;
  std::size_t offset_ = 2;
};

}  // namespace quorvale
