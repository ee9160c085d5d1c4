#include "platform/pictures/jpeg_segments.h"

#include <array>
#include <bit>

#include "base/byte_reader.h"

namespace quorvale {
namespace {

// Marker, kind and length; the length counts itself.
constexpr std::size_t kHead = 4;
constexpr std::uint8_t kMarker = 0xFF;
constexpr std::uint8_t kStartOfScan = 0xDA;

}  // namespace

std::optional<JpegSegment> JpegSegments::Next() {
  for (; left_ > 0; --left_) {
    std::array<std::uint8_t, kHead> head{};
    if (!bytes_.Copy(offset_, head) || head[0] != kMarker || head[1] == kStartOfScan) break;
    if (head[1] == kMarker) {  // Any number of these may fill up before a marker.
      ++offset_;
      continue;
    }
    const std::size_t length = ByteReader(head, 2, std::endian::big).U16();
    if (length < 2) break;
    const JpegSegment segment{.kind = head[1], .offset = offset_ + kHead, .size = length - 2};
    offset_ += 2 + length;
    --left_;
    return segment;
  }
  left_ = 0;
  return std::nullopt;
}

}  // namespace quorvale
