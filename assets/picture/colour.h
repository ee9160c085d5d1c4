#pragma once

#include <algorithm>

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

}  // namespace quorvale::samples
