#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/pictures/byte_source.h"
#include "toolkit/bitmap.h"
#include "toolkit/units.h"

namespace quorvale {

// How to turn a picture from the way it is stored to the way it is shown: first exchange rows and columns, then mirror
// and flip.
struct Orientation {
  bool transposed = false;
  bool mirrored = false;  // left and right
  bool flipped = false;   // top and bottom

  bool operator==(const Orientation&) const = default;

  // From the Exif number, 1 to 8. Any other number counts as 1.
  static Orientation FromExif(int number);

  // The size changes the same way in both directions.
  PixelSize Turn(PixelSize size) const { return transposed ? PixelSize{size.height, size.width} : size; }

  // The place in a stored picture of a part of the shown picture of size `shown`.
  PixelRect ToStored(const PixelRect& part, PixelSize shown) const;

  // Writes one stored row, the `y`th of a part, where it belongs in the shown part.
  void PlaceRow(const Pixel* row, int y, const PixelView& shown_part) const;
};

// The day in a text such as "2026:05:17 14:03:22", as "2026-05-17". Empty if the camera's clock was never set, for
// which blanks or zeros stand.
std::string DayOfExif(std::string_view text);

// What a camera stores beside the pixels, as Exif. Defaults stand for what a file lacks or is damaged.
struct CameraTags {
  Orientation orientation = {};
  // The day of the photo, such as "2026-05-17".
  std::string date_taken = {};
};

// From a block of Exif data, with or without the signature of a JPEG segment in front.
CameraTags ExifCameraTags(std::span<const std::uint8_t> exif);
CameraTags JpegCameraTags(ByteSource& bytes);
// From a box or an item of HEIF or JPEG XL, which begins with the place of the Exif data in it.
CameraTags BoxedCameraTags(std::span<const std::uint8_t> block);
// From the chunk `eXIf`, which may come before the pixels or after them.
CameraTags PngCameraTags(ByteSource& bytes);

}  // namespace quorvale
