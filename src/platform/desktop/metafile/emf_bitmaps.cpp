#include "platform/desktop/metafile/emf_bitmaps.h"

namespace quorvale {

void EmfBitmap::ReadPlace(ByteReader& reader) {
  info_at = reader.U32();
  info_size = reader.U32();
  bits_at = reader.U32();
  bits_size = reader.U32();
}

Dib EmfBitmap::Read(const Playback& playback, const ByteReader& reader, bool alpha, int rows) const {
  return ReadDib({.info = reader.Piece(info_at, info_size),
                  .bits = reader.Piece(bits_at, bits_size),
                  .table = table,
                  .palette = playback.canvas.State().palette.get(),
                  .alpha = alpha,
                  .rows = rows});
}

QRectF SourcePart(const QTransform& page, const QRectF& rect) {
  return page.isInvertible() && page.type() <= QTransform::TxScale ? page.mapRect(rect) : rect;
}

}  // namespace quorvale
