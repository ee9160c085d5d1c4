#include "platform/win32/pictures/file_heads.h"

#include <algorithm>

#include "platform/pictures/orientation.h"
#include "platform/win32/pictures/picture_bytes.h"

namespace quorvale {
namespace {

constexpr std::size_t kHeadSize = 13;
constexpr std::uint32_t kExtension = 0x21;
constexpr std::uint32_t kPicture = 0x2C;

int SideAt(std::span<const std::uint8_t> bytes, std::size_t at) { return static_cast<int>(WordAt(bytes, at)); }

// The end of a chain of blocks that each begin with their length.
std::size_t SkipBlocks(std::span<const std::uint8_t> bytes, std::size_t at) {
  while (const std::uint32_t length = ByteAt(bytes, at)) at += 1 + length;
  return at + 1;
}

constexpr std::uint8_t kMarker = 0xFF;
constexpr std::uint8_t kStart = 0xD8;
constexpr std::uint8_t kFirstFrameKind = 0xC0;
constexpr std::uint8_t kProgressive = 0xC2;
constexpr std::uint8_t kStartOfScan = 0xDA;
constexpr std::uint8_t kCameraData = 0xE1;

}  // namespace

GifCanvas ReadGifCanvas(std::span<const std::uint8_t> bytes) {
  if (ByteAt(bytes, 0) != 'G' || ByteAt(bytes, 1) != 'I' || ByteAt(bytes, 2) != 'F') return {};
  const std::uint32_t flags = ByteAt(bytes, 10);
  std::size_t at = kHeadSize;
  if ((flags & 0x80U) != 0) at += std::size_t{3} << ((flags & 7U) + 1);
  while (ByteAt(bytes, at) == kExtension) at = SkipBlocks(bytes, at + 2);
  if (ByteAt(bytes, at) != kPicture) return {};
  GifCanvas canvas;
  canvas.first = {SideAt(bytes, at + 1), SideAt(bytes, at + 3), SideAt(bytes, at + 5), SideAt(bytes, at + 7)};
  // Some writers leave the canvas smaller than the picture.
  canvas.width = std::max(SideAt(bytes, 6), canvas.first.Right());
  canvas.height = std::max(SideAt(bytes, 8), canvas.first.Bottom());
  return canvas;
}

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
