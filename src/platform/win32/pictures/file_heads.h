#pragma once

#include <cstdint>
#include <span>

#include "toolkit/units.h"

// What the system's decoders do not say of a file.

namespace quorvale {

// The size of a GIF file's canvas and the place of its first picture there, which may cover less.
struct GifCanvas {
  int width = 0;
  int height = 0;
  PixelRect first;
};

// Empty when the file is none, or damaged.
GifCanvas ReadGifCanvas(std::span<const std::uint8_t> bytes);

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
