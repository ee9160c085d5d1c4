#pragma once

#include <QPainterPath>
#include <QRectF>
#include <functional>

namespace quorvale {

// Painting a path takes as long as its lines are many and high, and can't be broken off. So paths that
// would take seconds, which no picture has, are found out first.

// Whether a path can be filled within a fraction of a second, as far as it lies in `area`.
bool CanFill(const QPainterPath& path, const QRectF& area);

// Calls `draw` with a line's pieces, one after the other, until one call gives false. A line of a few
// thousand points is in one piece.
void ForEachPiece(const QPainterPath& line, const std::function<bool(const QPainterPath&)>& draw);

}  // namespace quorvale
