#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace quorvale {

// Fills the span from `offset` of a file on. False if the file ends before, with what there is in the span.
using FileReader = std::function<bool(std::size_t offset, std::span<std::uint8_t> to)>;

// How the camera was held, by the number that Exif gives it, 1 to 8. 1 where the file does not say it or is damaged.
int JpegOrientation(const FileReader& read);
// It stands in the chunk `eXIf`, which may come before the pixels or after them.
int PngOrientation(const FileReader& read);

// That in an APP1 segment of a JPEG file, without marker and length. Nothing when the segment is not Exif.
std::optional<int> OrientationInSegment(std::span<const std::uint8_t> segment);

}  // namespace quorvale
