#include "platform/desktop/pictures/exif.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/desktop/pictures/exif_tags.h"

namespace quorvale {
namespace {

// A segment's marker and length.
constexpr std::size_t kSegmentHead = 4;
// The camera data come early; a file with more segments before them is not worth the search.
constexpr int kMostSegments = 64;

constexpr std::uint8_t kApp1 = 0xE1;
constexpr std::uint8_t kStartOfScan = 0xDA;

std::vector<std::uint8_t> Copy(PictureFile& file, std::size_t offset, std::size_t count) {
  std::vector<std::uint8_t> bytes;
  while (bytes.size() < count) {
    auto piece = file.From(offset + bytes.size());
    if (piece.empty()) break;
    piece = piece.first(std::min(piece.size(), count - bytes.size()));
    bytes.insert(bytes.end(), piece.begin(), piece.end());
  }
  return bytes;
}

}  // namespace

int ExifOrientation(PictureFile& file) {
  std::size_t offset = 2;
  for (int segment = 0; segment < kMostSegments; ++segment) {
    const auto head = Copy(file, offset, kSegmentHead);
    if (head.size() < kSegmentHead || head[0] != 0xFF || head[1] == kStartOfScan) break;
    const std::size_t length = std::size_t{head[2]} << 8U | head[3];
    if (length < 2) break;
    if (head[1] == kApp1) {
      const auto data = Copy(file, offset + kSegmentHead, length - 2);
      if (const auto orientation = OrientationInSegment(data)) return *orientation;
    }
    offset += 2 + length;
  }
  return 1;
}

}  // namespace quorvale
