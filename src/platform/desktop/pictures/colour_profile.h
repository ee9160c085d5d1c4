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
  // Null if nothing has to be converted: the profile is empty, damaged, not one for RGB, or sRGB by its effect.
  static std::shared_ptr<const ColourProfile> Read(std::span<const std::uint8_t> profile);
  // The profile of RGB with the primaries of Display P3 and the transfer curve of sRGB.
  static std::vector<std::uint8_t> DisplayP3();

  // `row` is premultiplied.
  void ToScreen(std::span<Pixel> row) const;

 private:
  explicit ColourProfile(ColourConversion convert) : convert_(std::move(convert)) {}
  bool ChangesColours() const;

  // Of opaque pixels.
  ColourConversion convert_;
};

}  // namespace quorvale
