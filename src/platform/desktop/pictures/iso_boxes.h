#pragma once

#include <cstdint>
#include <optional>

#include "base/byte_reader.h"
#include "platform/pictures/orientation.h"

namespace quorvale {

// A box of an ISO base media file (ISO/IEC 14496-12), of which HEIF, AVIF and JPEG XL are kinds.
struct IsoBox {
  std::uint32_t type = 0;  // four characters, the first in the highest byte
  ByteSpan content;
};

constexpr std::uint32_t BoxType(const char (&name)[5]) {
  std::uint32_t type = 0;
  for (int i = 0; i < 4; ++i) type = type << 8U | static_cast<std::uint8_t>(name[i]);
  return type;
}

// Takes the first box off a sequence of boxes; what is cut off at the end counts as whole. None if nothing is left.
std::optional<IsoBox> CutBox(ByteSpan& boxes);

// The content of the first box of a type. Empty if there is none among the first thousands.
ByteSpan FindBox(ByteSpan boxes, std::uint32_t type);

// How a HEIF file wants its primary picture to be rotated. None if the file also mirrors or cuts it, or is damaged.
std::optional<Orientation> HeifRotation(ByteSpan file);

// Whether a HEIF file has pictures in greys only: the primary one or its tiles, and those beside it, such as its alpha,
// which is in greys in a picture of colours, too.
bool IsGreyHeif(ByteSpan file);

// Whether a HEIF file makes pictures of pictures, such as a grid of tiles, on more levels than a sane one has. One that
// is made of itself has no end of them.
bool NestsTooDeep(ByteSpan file);

}  // namespace quorvale
