#include "platform/win32/pictures/file_heads.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace quorvale {
namespace {

// GIF: the letters "GIF" as a number, and the size of the header.
constexpr std::uint32_t kGifMark = 0x464947;
constexpr std::size_t kGifHeader = 13;
constexpr unsigned kExtension = 0x21;
constexpr unsigned kPicture = 0x2C;

// JPEG. A marker is the byte `kMarker` and a number.
constexpr unsigned kStartOfImage = 0xFFD8;
constexpr unsigned kMarker = 0xFF;
constexpr unsigned kFirstFrameKind = 0xC0;
constexpr unsigned kProgressive = 0xC2;
constexpr unsigned kStartOfScan = 0xDA;

// Skips a chain of blocks, each of which begins with its length.
void SkipBlocks(ByteReader& reader) {
  while (const unsigned length = reader.U8()) reader.Skip(length);
}

// WebP, as numbers: "RIFF", "WEBP", "EXIF".
constexpr std::uint32_t kRiff = 0x46464952;
constexpr std::uint32_t kWebp = 0x50424557;
constexpr std::uint32_t kExif = 0x46495845;

}  // namespace

GifCanvas ReadGifCanvas(ByteSpan bytes) {
  ByteReader reader(bytes);
  if (reader.U24() != kGifMark) return {};
  reader.Seek(6);
  GifCanvas canvas;
  canvas.width = reader.U16();
  canvas.height = reader.U16();
  const unsigned flags = reader.U8();
  reader.Seek(kGifHeader);
  if ((flags & 0x80U) != 0) reader.Skip(std::size_t{3} << ((flags & 7U) + 1));
  unsigned block = reader.U8();
  for (; block == kExtension; block = reader.U8()) {
    reader.Skip(1);
    SkipBlocks(reader);
  }
  if (block != kPicture) return {};
  for (int* const number : {&canvas.first.left, &canvas.first.top, &canvas.first.width, &canvas.first.height}) {
    *number = reader.U16();
  }
  // Some writers leave the canvas smaller than the picture.
  canvas.width = std::max(canvas.width, canvas.first.Right());
  canvas.height = std::max(canvas.height, canvas.first.Bottom());
  return canvas;
}

bool HasSeveralScans(ByteSpan bytes) {
  ByteReader reader(bytes, 0, std::endian::big);
  if (reader.U16() != kStartOfImage) return false;
  unsigned colours = 0;
  while (reader.U8() == kMarker) {
    unsigned kind = reader.U8();
    // Any number of these may fill up before a marker.
    while (kind == kMarker) kind = reader.U8();
    const std::size_t start = reader.At();
    const std::size_t length = reader.U16();
    if (kind == kStartOfScan) return reader.U8() < colours;
    if (length < 2 || length > bytes.size() - start) return false;
    if (kind == kProgressive) return true;
    if (kind == kFirstFrameKind || kind == kFirstFrameKind + 1) {
      // The number follows a depth and two sides.
      reader.Skip(5);
      colours = reader.U8();
    }
    reader.Seek(start + length);
  }
  return false;
}

ByteSpan WebpExif(ByteSpan bytes) {
  ByteReader reader(bytes);
  if (reader.U32() != kRiff || ByteReader(bytes, 8).U32() != kWebp) return {};
  reader.Seek(12);
  while (reader.Left() >= 8) {
    const std::uint32_t name = reader.U32();
    const std::size_t size = reader.U32();
    if (name == kExif) return reader.Piece(reader.At(), size);
    if (size > reader.Left()) break;
    // Chunks begin at even offsets.
    reader.Skip(size + size % 2);
  }
  return {};
}

}  // namespace quorvale
