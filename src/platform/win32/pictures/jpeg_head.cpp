#include "platform/win32/pictures/jpeg_head.h"

#include <algorithm>

#include "platform/pictures/orientation.h"
#include "platform/win32/pictures/picture_bytes.h"

namespace quorvale {
namespace {

constexpr std::uint8_t kMarker = 0xFF;
constexpr std::uint8_t kStart = 0xD8;
constexpr std::uint8_t kFirstFrameKind = 0xC0;
constexpr std::uint8_t kProgressive = 0xC2;
constexpr std::uint8_t kStartOfScan = 0xDA;
constexpr std::uint8_t kCameraData = 0xE1;

}  // namespace

JpegHead ReadJpegHead(std::span<const std::uint8_t> bytes) {
  JpegHead head;
  if (ByteAt(bytes, 0) != kMarker || ByteAt(bytes, 1) != kStart) return head;
  bool has_orientation = false;
  std::uint32_t colours = 0;
  for (std::size_t at = 2; ByteAt(bytes, at) == kMarker;) {
    const std::uint32_t kind = ByteAt(bytes, at + 1);
    // A marker may be filled up with more of its first byte.
    if (kind == kMarker) {
      ++at;
      continue;
    }
    if (kind == kStartOfScan) {
      if (ByteAt(bytes, at + 4) < colours) head.has_several_scans = true;
      break;
    }
    const std::size_t length = ByteAt(bytes, at + 2) << 8U | ByteAt(bytes, at + 3);
    if (length < 2 || length > bytes.size() - at - 2) break;
    if (kind >= kFirstFrameKind && kind <= kProgressive) colours = ByteAt(bytes, at + 9);
    if (kind == kProgressive) head.has_several_scans = true;
    if (kind == kCameraData && !has_orientation) {
      const auto orientation = OrientationInSegment(bytes.subspan(at + 4, length - 2));
      head.orientation = orientation.value_or(1);
      has_orientation = orientation.has_value();
    }
    at += 2 + length;
  }
  return head;
}

}  // namespace quorvale
