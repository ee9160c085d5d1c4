#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "platform/pictures/rendered_picture.h"
#include "toolkit/bitmap.h"

namespace quorvale {

// Converts pixels from the colours of an ICC profile to sRGB, those of the screen.
class ColourProfile {
 public:
  // Null if nothing has to be converted: the profile is empty, damaged, sRGB by its effect, or not one for RGB. In a
  // grey picture it may also be one for greys.
  static std::shared_ptr<const ColourProfile> Read(std::span<const std::uint8_t> profile, bool is_grey);
  // The profile of RGB with the primaries and the transfer curve that the standards of films give these numbers. Empty
  // if they are unknown, those of sRGB, or of a range that the screen does not have.
  static std::vector<std::uint8_t> OfNumbers(int primaries, int transfer);

  // `row` is premultiplied.
  void ToScreen(std::span<Pixel> row) const;

 private:
  explicit ColourProfile(ColourConversion convert) : convert_(std::move(convert)) {}

  // Of opaque pixels.
  ColourConversion convert_;
};

}  // namespace quorvale
