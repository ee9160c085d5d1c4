#include "platform/win32/pictures/gif_canvas.h"

#include <algorithm>

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

}  // namespace quorvale
