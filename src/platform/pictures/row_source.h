#pragma once

#include <cstddef>

#include "toolkit/pixel_view.h"

namespace quorvale {

// A picture that comes row by row, as it is stored.
class RowSource {
 public:
  virtual ~RowSource() = default;

  // One side: `count` pixels that cover a length of `length`, which may end within the last one.
  struct Side {
    int count = 0;
    double length = 0;
  };
  virtual Side Across() const = 0;
  virtual Side Down() const = 0;

  // Whether every pixel's alpha is 255; elsewhere colours are multiplied by it.
  virtual bool IsOpaque() const = 0;

  // How many bytes it takes to come row by row, beside some rows.
  virtual std::size_t Memory() const { return 0; }

  // Of each row the columns from `left` up to but not including `right` are wanted, from the row `top`
  // on. False when the picture is too damaged. Called once.
  virtual bool Start(int left, int right, int top) = 0;

  // The pixels of a row from `left` on. Rows are asked for from top to bottom, and the last two any
  // number of times: they stay. Null when damage ends the picture before it.
  virtual const Pixel* Row(int y) = 0;
};

}  // namespace quorvale
