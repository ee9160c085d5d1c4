#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace quorvale::samples {

// Light in linear units: 1 is a white wall in the scene's main light, and there is no upper end.
struct Colour {
  float r = 0, g = 0, b = 0;

  Colour& operator+=(Colour o) { return r += o.r, g += o.g, b += o.b, *this; }
  Colour& operator*=(float k) { return r *= k, g *= k, b *= k, *this; }
};

inline Colour operator+(Colour a, Colour b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }
inline Colour operator-(Colour a, Colour b) { return {a.r - b.r, a.g - b.g, a.b - b.b}; }
inline Colour operator*(Colour a, Colour b) { return {a.r * b.r, a.g * b.g, a.b * b.b}; }
inline Colour operator*(Colour a, float k) { return {a.r * k, a.g * k, a.b * k}; }
inline Colour operator*(float k, Colour a) { return a * k; }

inline float Mix(float a, float b, float t) { return a + (b - a) * t; }
inline Colour Mix(Colour a, Colour b, float t) { return a + (b - a) * t; }
inline float Clamp01(float x) { return std::clamp(x, 0.0F, 1.0F); }

// 0 below `from`, 1 above `to`, with no corner between. `from` may be the larger one.
inline float Smooth(float from, float to, float x) {
  const float t = Clamp01((x - from) / (to - from));
  return t * t * (3 - 2 * t);
}

// Calls `work(begin, end)` for pieces that cover 0 to `count`, on all the cores there are. A piece must
// depend on nothing that another one writes: then the result is the same whatever the number of cores.
void InParallel(int count, const std::function<void(int begin, int end)>& work);

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

struct Point {
  float x, y;
};

// A straight stroke of the brush that may taper, with smooth edges. A stroke thinner than a pixel is fainter
// instead. Widths are in pixels.
void Stroke(Canvas& canvas, Point from, Point to, float from_width, float to_width, Colour colour);

// Fills a convex shape, smooth at its edges. The corners go round clockwise, as seen on the screen.
void FillShape(Canvas& canvas, std::span<const Point> corners, Colour colour);

}  // namespace quorvale::samples
