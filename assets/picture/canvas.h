#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "picture/colour.h"

namespace quorvale::samples {

// A picture in linear light. Row 0 is at the top; the centre of a pixel lies at its indices plus 0.5.
class Canvas {
 public:
  Canvas(int width, int height);

  int Width() const { return width_; }
  int Height() const { return height_; }
  Colour& At(int x, int y) { return pixels_[Index(x, y)]; }
  const Colour& At(int x, int y) const { return pixels_[Index(x, y)]; }

  // Covers the share `alpha` of a pixel. Pixels outside are passed over.
  void Blend(int x, int y, Colour colour, float alpha);

  // The light at any point, interpolated between pixels; outside, that of the nearest edge.
  Colour Sample(float x, float y) const;

  // Sets the rows from `top` to below `bottom` to what `shade` gives for each pixel, on all cores.
  void Fill(int top, int bottom, const std::function<Colour(int x, int y)>& shade);

 private:
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }

  int width_, height_;
  std::vector<Colour> pixels_;
};

}  // namespace quorvale::samples
