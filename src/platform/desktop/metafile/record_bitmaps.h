#pragma once

#include <QImage>

#include "base/byte_reader.h"
#include "platform/desktop/metafile/objects.h"
#include "platform/pictures/dib.h"

namespace quorvale::metafile {

struct DibSource {
  // BITMAPCOREHEADER or BITMAPINFOHEADER and its successors, masks and colour table.
  ByteSpan info;
  // The rows. Empty if they follow the colour table.
  ByteSpan bits;
  ColorUsage usage = ColorUsage::DIB_RGB_COLORS;
  const Palette* palette = nullptr;
  // The fourth byte of a 32-bit pixel is alpha, and the colours are premultiplied by it.
  bool alpha = false;
  // How many rows `bits` holds. Negative: all of them.
  int rows = -1;
};

struct Dib {
  // RGB32, or ARGB32_Premultiplied with alpha. Null if the data is damaged.
  QImage image;
  int depth = 0;
  // The rows are stored from the top, and source rectangles count from there.
  bool top_down = false;
};

// Reads a device-independent bitmap of 1, 2, 4, 8, 16, 24 or 32 bits, packed or run-length encoded. Never
// allocates an image that the bits cannot fill.
Dib ReadDib(const DibSource& source);

// Reads a Bitmap16 object, the device-dependent bitmap of early WMF files. `reader` stands at its width, the
// rows begin at `rows_at`. Monochrome bitmaps get the colours `zero` and `one`; 24 and 32 bits have their own.
QImage ReadBitmap16(ByteReader reader, std::size_t rows_at, QRgb zero, QRgb one);

}  // namespace quorvale::metafile
