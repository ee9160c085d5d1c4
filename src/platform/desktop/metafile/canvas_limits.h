#pragma once

#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <cmath>

namespace quorvale {

// Pixels of the target: far outside of any screen, and well inside what the painter can take.
inline constexpr double kFarthest = 1 << 20U;

inline bool IsFar(QPointF point) { return !(std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest); }

// What is no number is 0.
inline double Clamped(double coordinate) {
  return std::isfinite(coordinate) ? std::clamp(coordinate, -kFarthest, kFarthest) : 0;
}
inline QPointF Clamped(QPointF point) { return {Clamped(point.x()), Clamped(point.y())}; }
inline QRectF Clamped(const QRectF& rect) { return {Clamped(rect.topLeft()), Clamped(rect.bottomRight())}; }

}  // namespace quorvale
