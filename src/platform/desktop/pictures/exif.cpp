#include "platform/desktop/pictures/exif.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/pictures/exif_tags.h"

namespace quorvale {
namespace {

// A segment's marker and length.
constexpr std::size_t kSegmentHead = 4;
// The camera data come early; a file with more segments before them is not worth the search.
constexpr int kMostSegments = 64;

constexpr std::uint8_t kApp1 = 0xE1;
constexpr std::uint8_t kStartOfScan = 0xDA;
}  // namespace

int ExifOrientation(PictureFile& file) {
  std::size_t offset = 2;
  for (int segment = 0; segment < kMostSegments; ++segment) {
    std::array<std::uint8_t, kSegmentHead> head{};
    if (!file.Copy(offset, head) || head[0] != 0xFF || head[1] == kStartOfScan) break;
    const std::size_t length = std::size_t{head[2]} << 8U | head[3];
    if (length < 2) break;
    if (head[1] == kApp1) {
      std::vector<std::uint8_t> data(length - 2);
      file.Copy(offset + kSegmentHead, data);
      if (const auto orientation = OrientationInSegment(data)) return *orientation;
    }
    offset += 2 + length;
  }
  return 1;
}

}  // namespace quorvale
