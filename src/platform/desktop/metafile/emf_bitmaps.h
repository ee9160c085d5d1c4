#pragma once

#include "platform/desktop/metafile/dib.h"
#include "platform/desktop/metafile/playback.h"

namespace quorvale {

// Where a record says that its bitmap is, and the bitmap's place on the page that it comes from.
struct EmfBitmap {
  std::size_t info_at = 0;
  std::size_t info_size = 0;
  std::size_t bits_at = 0;
  std::size_t bits_size = 0;
  ColourTable table = ColourTable::kColours;

  // The four numbers in a row.
  void ReadPlace(ByteReader& reader);
  bool Exists() const { return info_size != 0; }
  Dib Read(const Playback& playback, const ByteReader& reader, bool alpha = false, int rows = -1) const;
};

// A blit's source rectangle in units of its page, in pixels.
QRectF SourcePart(const QTransform& page, const QRectF& rect);

}  // namespace quorvale
