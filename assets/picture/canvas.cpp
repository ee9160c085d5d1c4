#include "picture/canvas.h"

#include <algorithm>
#include <cstddef>
#include <functional>

#include "picture/colour.h"
#include "picture/parallel.h"

namespace quorvale::samples {

Canvas::Canvas(int width, int height)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void Canvas::Blend(int x, int y, Colour colour, float alpha) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  Colour& pixel = At(x, y);
  pixel = Mix(pixel, colour, alpha);
}

Colour Canvas::Sample(float x, float y) const {
  x = std::clamp(x - 0.5F, 0.0F, static_cast<float>(width_ - 1));
  y = std::clamp(y - 0.5F, 0.0F, static_cast<float>(height_ - 1));
  const int left = std::min(static_cast<int>(x), width_ - 2), top = std::min(static_cast<int>(y), height_ - 2);
  const float u = x - static_cast<float>(left), v = y - static_cast<float>(top);
  return Mix(Mix(At(left, top), At(left + 1, top), u), Mix(At(left, top + 1), At(left + 1, top + 1), u), v);
}

void Canvas::Fill(int top, int bottom, const std::function<Colour(int x, int y)>& shade) {
  InParallel(bottom - top, [&](int begin, int end) {
    for (int y = top + begin; y < top + end; ++y)
      for (int x = 0; x < width_; ++x) At(x, y) = shade(x, y);
  });
}

}  // namespace quorvale::samples
