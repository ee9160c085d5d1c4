#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/byte_reader.h"
#include "toolkit/bitmap.h"

namespace quorvale {

// Converts pixels from the colours of an ICC profile to sRGB, those of the screen. The system is asked for a grid of
// colours once; those between are interpolated, which takes less time than asking for each.
class ColourProfile {
 public:
  // Null if nothing has to be converted: the profile is empty, damaged, sRGB by its effect, or not one for RGB. In a
  // grey picture it may also be one for greys.
  static std::shared_ptr<const ColourProfile> Read(ByteSpan profile, bool is_grey);

  // `row` is premultiplied.
  void ToScreen(std::span<Pixel> row) const;

 private:
  // A colour as three lanes of 16 bits, so that one multiplication weighs all channels.
  using Lanes = std::uint64_t;

  ColourProfile() = default;
  Lanes Mixed(Pixel pixel) const;
  Pixel Converted(Pixel pixel) const;

  // Blue changes fastest, then green. Or all levels of grey.
  std::vector<Lanes> grid_;
};

}  // namespace quorvale
