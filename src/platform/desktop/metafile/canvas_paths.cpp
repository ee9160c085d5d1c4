// The path that records build piece by piece.

#include <QPainterPathStroker>

#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/path_pieces.h"

namespace quorvale {
namespace {

// Every figure ends where it began.
QPainterPath Closed(const QPainterPath& path) {
  QPainterPath closed;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    if (element.isMoveTo()) {
      closed.closeSubpath();
      closed.moveTo(element);
    } else if (element.isLineTo()) {
      closed.lineTo(element);
    } else if (i + 2 < path.elementCount()) {
      closed.cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
      i += 2;
    }
  }
  closed.closeSubpath();
  return closed;
}

}  // namespace

void MetafileCanvas::BeginPath() {
  path_ = {};
  path_open_ = true;
}

void MetafileCanvas::EndPath() { path_open_ = false; }

void MetafileCanvas::AbortPath() {
  path_ = {};
  path_open_ = false;
}

void MetafileCanvas::CloseFigure() {
  if (!path_open_ || path_.isEmpty()) return;
  path_.closeSubpath();
  state_.position = ToMiddles().inverted().map(path_.currentPosition());
}

void MetafileCanvas::FlattenPath() {
  QPainterPath flat;
  for (const QPolygonF& polygon : path_.toSubpathPolygons()) flat.addPolygon(polygon);
  path_ = flat;
}

// Of dashes there can be many more than a path has points.
void MetafileCanvas::WidenPath() {
  constexpr int kMostElements = 1'000'000;
  const std::optional<QPen> pen = MakePen();
  if (!pen) return;
  const QPainterPathStroker stroker(*pen);
  QPainterPath wide;
  ForEachPiece(path_, [&](const QPainterPath& piece) {
    wide.addPath(stroker.createStroke(piece));
    return !OutOfTime() && wide.elementCount() < kMostElements;
  });
  path_ = wide;
}

void MetafileCanvas::UsePath(PathUse use) {
  // What is filled as well is outlined all around.
  const QPainterPath path = use == PathUse::kBoth ? Closed(path_) : path_;
  AbortPath();
  Paint(path, use);
}

void MetafileCanvas::ClipToPath(ClipMode mode) {
  QPainterPath path = path_;
  AbortPath();
  path.setFillRule(state_.fill_rule);
  ChangeClip(PathRegion(path), mode);
}

}  // namespace quorvale
