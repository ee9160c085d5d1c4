#pragma once

#include <QImage>

#include "platform/desktop/metafile/byte_reader.h"
#include "platform/desktop/metafile/gdi_objects.h"

namespace quorvale {

// What a bitmap's colour table holds, by the numbers of the records.
enum class ColourTable : unsigned { kColours, kPaletteNumbers, kNone };

struct DibSource {
  // The header and the colour table.
  ByteSpan info;
  // The rows. Empty if they follow on the colour table.
  ByteSpan bits;
  ColourTable table = ColourTable::kColours;
  const Palette* palette = nullptr;
  // The fourth byte of a 32-bit pixel is its alpha, by which the colours are multiplied already.
  bool alpha = false;
  // How many rows the bits hold; all of them if below 0.
  int rows = -1;
};

struct Dib {
  // RGB32, or ARGB32_Premultiplied with alpha. Null if the data are damaged.
  QImage image;
  int depth = 0;
  // Rows are stored, and parts counted, from the upper edge.
  bool top_down = false;
};

// Every depth, packed or run-length encoded. Never makes an image that the bits can't fill.
Dib ReadDib(const DibSource& source);

// An old bitmap without colours, that WMF files of the first days hold: two colours, or their own ones.
// `reader` stands at its size.
QImage ReadDeviceBitmap(ByteReader reader, std::size_t rows_at, QRgb zero, QRgb one);

}  // namespace quorvale
