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

// A camera that looks straight at the horizon. Lengths in the landscape are kilometres.
struct View {
  float centre_column;
  float horizon_row;
  float focal;       // in pixels: the image size of something as large as it is far
  float eye_height;  // above the water, which is at height 0

  Vector Direction(float column, float row) const {
    return Unit({(column - centre_column) / focal, (horizon_row - row) / focal, 1});
  }
  float Row(float height, float distance) const { return horizon_row - (height - eye_height) / distance * focal; }
  float Column(float x, float distance) const { return centre_column + x / distance * focal; }
};

}  // namespace quorvale::samples
