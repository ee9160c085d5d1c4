#pragma once

#include <array>
#include <vector>

#include "platform/desktop/metafile/dib.h"

namespace quorvale {

// What stands before the rows of a bitmap, checked.
struct DibHeader {
  bool valid = false;
  int width = 0;
  int height = 0;
  bool top_down = false;
  int depth = 0;
  bool run_length = false;
  // Where red, green and blue are in a pixel of 16 or 32 bits.
  std::array<unsigned, 3> masks{};
  std::vector<QRgb> colours;
  // Bytes up to the rows, no more than there are.
  std::size_t size = 0;
};

DibHeader ReadDibHeader(const DibSource& source);

}  // namespace quorvale
