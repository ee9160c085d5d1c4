#pragma once

#include <string_view>

namespace quorvale {

// A kind of picture file, as lists, dialogs and the help name it. How it is read is the platform's business: each has
// its own table for that.
struct PictureFormat {
  std::string_view name;
  // What its files are called, with semicolons between: "*.jpg;*.jpeg".
  std::string_view patterns;
  // Whether a directory in a list stands for these files too.
  bool listed = true;
};

// In the order of the picture mask.
inline constexpr PictureFormat kPictureFormats[] = {
    {"BMP", "*.bmp"}, {"GIF", "*.gif"}, {"JPEG", "*.jpg;*.jpeg"},
    {"WMF", "*.wmf"}, {"EMF", "*.emf"}, {"PNG", "*.png", false},
};

}  // namespace quorvale
