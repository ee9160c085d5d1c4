#pragma once

#include <string_view>

namespace quorvale {

// A picture format as lists, dialogs and help name it. Each platform has its own table of decoders.
struct PictureFormat {
  std::string_view name;
  // File patterns, separated by semicolons: "*.jpg;*.jpeg".
  std::string_view patterns;
  // Whether directory entries in a list include these files.
  bool listed = true;
};

// In the order of the picture mask.
inline constexpr PictureFormat kPictureFormats[] = {
    {"BMP", "*.bmp"}, {"GIF", "*.gif"}, {"JPEG", "*.jpg;*.jpeg"},
    {"WMF", "*.wmf"}, {"EMF", "*.emf"}, {"PNG", "*.png", false},
};

}  // namespace quorvale
