// The path that records build piece by piece.

#include <QPainterPathStroker>

#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/path_pieces.h"

namespace quorvale {

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

void MetafileCanvas::WidenPath() {
  const std::optional<QPen> pen = MakePen();
  if (!pen) return;
  const QPainterPathStroker stroker(*pen);
  QPainterPath wide;
  ForEachPiece(path_, [&](const QPainterPath& piece) {
    wide.addPath(stroker.createStroke(piece));
    return !OutOfTime();
  });
  path_ = wide;
}

void MetafileCanvas::UsePath(PathUse use) {
  const QPainterPath path = path_;
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
