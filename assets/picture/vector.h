#pragma once

#include <cmath>

namespace quorvale::samples {

// x to the right, y up, z away from the viewer.
struct Vector {
  float x = 0, y = 0, z = 0;
};

inline Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector operator*(Vector a, float k) { return {a.x * k, a.y * k, a.z * k}; }
inline float Dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vector Unit(Vector a) { return a * (1 / std::sqrt(Dot(a, a))); }

}  // namespace quorvale::samples
