#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it
#include <string>
#include <vector>

#include <jpeglib.h>

#include "toolkit/bitmap.h"
#include "yardstick/x_display.h"

namespace quorvale {

// The rows of a JPEG file at 1/`divisor` of its size, decoded by the library alone. A damaged file ends the bench with
// the library's message.
class JpegRows {
 public:
  explicit JpegRows(const std::string& path);
  ~JpegRows();
  JpegRows(const JpegRows&) = delete;
  JpegRows& operator=(const JpegRows&) = delete;

  int FullWidth() const { return static_cast<int>(decoder_.image_width); }
  int FullHeight() const { return static_cast<int>(decoder_.image_height); }

  // Called once. `divisor` is 1, 2, 4 or 8.
  void Start(int divisor);
  int Width() const { return static_cast<int>(decoder_.output_width); }
  int Height() const { return static_cast<int>(decoder_.output_height); }

  // Writes the next row, of `Width` pixels.
  void Read(Pixel* row);

 private:
  jpeg_decompress_struct decoder_{};
  jpeg_error_mgr errors_{};
  void* bytes_ = nullptr;
  std::size_t size_ = 0;
};

// Only decodes, row by row into the same memory.
void DecodeOnly(const std::string& path, int divisor);

// The greatest divisor at which a picture of `width` by `height` is still at least that large.
int NearestDivisor(int width, int height, int least_width, int least_height);

enum class Fit {
  kStretched,  // over the whole screen
  kInside,     // in the picture's own proportions
};

// The least that a program must do to show a JPEG picture: decode it at the nearest scale that the library has, average
// the rest of the way, and put it on the screen once.
void ShowByYardstick(const std::string& path, Fit fit, SharedWindow& window);

}  // namespace quorvale
