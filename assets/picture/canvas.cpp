#include "picture/canvas.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>
#include <thread>
#include <vector>

namespace quorvale::samples {

void InParallel(int count, const std::function<void(int begin, int end)>& work) {
  const int threads = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, 16);
  // Small pieces, so that a busy core does not hold up the others.
  const int piece = std::max(1, count / (threads * 16));
  std::atomic<int> next = 0;
  const auto take_pieces = [&] {
    for (int begin = next.fetch_add(piece); begin < count; begin = next.fetch_add(piece))
      work(begin, std::min(begin + piece, count));
  };
  std::vector<std::jthread> helpers;
  for (int i = 1; i < threads; ++i) helpers.emplace_back(take_pieces);
  take_pieces();
}

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

void Stroke(Canvas& canvas, Point from, Point to, float from_width, float to_width, Colour colour) {
  const float margin = std::max(from_width, to_width) / 2 + 1;
  const int left = std::max(0, static_cast<int>(std::floor(std::min(from.x, to.x) - margin)));
  const int right = std::min(canvas.Width() - 1, static_cast<int>(std::ceil(std::max(from.x, to.x) + margin)));
  const int top = std::max(0, static_cast<int>(std::floor(std::min(from.y, to.y) - margin)));
  const int bottom = std::min(canvas.Height() - 1, static_cast<int>(std::ceil(std::max(from.y, to.y) + margin)));
  const float along_x = to.x - from.x, along_y = to.y - from.y;
  const float square = std::max(along_x * along_x + along_y * along_y, 1e-6F);
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      const float px = static_cast<float>(x) + 0.5F - from.x, py = static_cast<float>(y) + 0.5F - from.y;
      const float t = Clamp01((px * along_x + py * along_y) / square);
      const float off_x = px - t * along_x, off_y = py - t * along_y;
      const float width = Mix(from_width, to_width, t);
      const float inside = width / 2 + 0.5F - std::sqrt(off_x * off_x + off_y * off_y);
      if (inside > 0) canvas.Blend(x, y, colour, std::min({inside, width, 1.0F}));
    }
  }
}

void FillShape(Canvas& canvas, std::span<const Point> corners, Colour colour) {
  const auto [left, right] = std::ranges::minmax(corners, {}, &Point::x);
  const auto [top, bottom] = std::ranges::minmax(corners, {}, &Point::y);
  for (int y = static_cast<int>(top.y) - 1; y <= static_cast<int>(bottom.y) + 1; ++y) {
    for (int x = static_cast<int>(left.x) - 1; x <= static_cast<int>(right.x) + 1; ++x) {
      const float px = static_cast<float>(x) + 0.5F, py = static_cast<float>(y) + 0.5F;
      float inside = 1;
      for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point a = corners[i], b = corners[(i + 1) % corners.size()];
        const float along_x = b.x - a.x, along_y = b.y - a.y;
        const float cross = along_x * (py - a.y) - along_y * (px - a.x);
        inside = std::min(inside, cross / std::sqrt(along_x * along_x + along_y * along_y) + 0.5F);
      }
      if (inside > 0) canvas.Blend(x, y, colour, inside);
    }
  }
}

}  // namespace quorvale::samples
