#pragma once

#include "platform/pictures/byte_source.h"
#include "toolkit/pixel_view.h"
#include "toolkit/units.h"

namespace quorvale {

// In pixels.
struct PixelSize {
  int width = 0;
  int height = 0;
  bool operator==(const PixelSize&) const = default;
};

// How a picture's rows and columns as they are stored become those that are shown: first rows and
// columns may change roles, then either may be reversed.
struct Orientation {
  bool transposed = false;
  bool mirrored = false;  // left and right
  bool flipped = false;   // top and bottom

  // From the number that cameras store, 1 to 8; any other number is 1.
  static Orientation FromExif(int number);

  // The size changes the same way in both directions.
  PixelSize Turn(PixelSize size) const { return transposed ? PixelSize{size.height, size.width} : size; }

  // The place in a stored picture of a part of the shown picture of size `shown`.
  PixelRect ToStored(const PixelRect& part, PixelSize shown) const;

  // Writes one stored row, the `y`th of a part, where it belongs in the shown part.
  void PlaceRow(const Pixel* row, int y, const PixelView& shown_part) const;
};

// How the camera was held, by the number that Exif gives it, 1 to 8. 1 where the file does not say it or is damaged.
int JpegOrientation(ByteSource& bytes);
// It stands in the chunk `eXIf`, which may come before the pixels or after them.
int PngOrientation(ByteSource& bytes);

}  // namespace quorvale
