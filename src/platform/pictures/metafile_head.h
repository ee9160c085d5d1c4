#pragma once

#include <cstddef>

#include "base/byte_reader.h"

// How metafiles begin. Placeable WMF files have a header of their own before the usual one, which says their size.

namespace quorvale {

inline constexpr std::size_t kPlaceableHeadSize = 22;
inline constexpr std::size_t kWmfHeadSize = 18;
inline constexpr double kTwipsPerInch = 1440;

// Whether the bytes begin with such a head.
bool IsEmfHead(ByteSpan bytes);
bool IsWmfHead(ByteSpan bytes);
bool IsPlaceableHead(ByteSpan bytes);

// The picture's edges in units of the file. They may be in any order, or the same if the file does not say its size.
struct PlaceableHead {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  double units_per_inch = kTwipsPerInch;
};

// What is missing counts as 0.
PlaceableHead ReadPlaceableHead(ByteSpan bytes);

}  // namespace quorvale
