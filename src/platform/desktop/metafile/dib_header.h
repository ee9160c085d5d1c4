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

// Bytes from one row to the next, unless encoded.
inline std::size_t RowSize(const DibHeader& header) {
  return (static_cast<std::size_t>(header.width) * static_cast<unsigned>(header.depth) + 31) / 32 * 4;
}

DibHeader ReadDibHeader(const DibSource& source);

}  // namespace quorvale
