#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <algorithm>
#include <cmath>
#include <functional>

// What the painter can take. Files may hold any coordinates and any number of lines; the painter overflows on the
// ones and cannot be interrupted in the others.

namespace quorvale::metafile {

// Pixels of the target: far outside every screen, and well inside the painter's range.
inline constexpr double kFarthest = 1 << 20U;

inline bool IsFar(QPointF point) { return !(std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest); }

// NaN and infinity become 0.
inline double Clamped(double coordinate) {
  return std::isfinite(coordinate) ? std::clamp(coordinate, -kFarthest, kFarthest) : 0;
}
inline QPointF Clamped(QPointF point) { return {Clamped(point.x()), Clamped(point.y())}; }
inline QRectF Clamped(const QRectF& rect) { return {Clamped(rect.topLeft()), Clamped(rect.bottomRight())}; }

// Alpha from which a pixel counts as covered where there is no half.
inline constexpr int kHalfCovered = 128;

// Whether the part of a path inside `area` can be filled in a fraction of a second. The time grows with the number
// and the height of its lines; no real picture comes near the limit.
bool CanFill(const QPainterPath& path, const QRectF& area);

// Calls `draw` with a line's pieces in turn until it returns false. Lines of up to a few thousand points are one
// piece.
void ForEachPiece(const QPainterPath& line, const std::function<bool(const QPainterPath&)>& draw);

}  // namespace quorvale::metafile
