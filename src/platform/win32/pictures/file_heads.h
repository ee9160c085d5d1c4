#pragma once

#include "base/byte_reader.h"
#include "toolkit/units.h"

// Facts about files that the system's decoders do not report.

namespace quorvale {

// The size of a GIF file's canvas and the place of its first picture there, which may cover less.
struct GifCanvas {
  int width = 0;
  int height = 0;
  PixelRect first;
};

// Empty if the file is not a GIF file, or damaged.
GifCanvas ReadGifCanvas(ByteSpan bytes);

// Whether a JPEG file has several scans, which a decoder puts together in memory. False for any other file.
bool HasSeveralScans(ByteSpan bytes);

// The block of Exif data in a WebP file. Empty if there is none, and for any other file.
ByteSpan WebpExif(ByteSpan bytes);

}  // namespace quorvale
