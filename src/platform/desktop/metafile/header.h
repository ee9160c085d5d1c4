#pragma once

#include <QRectF>
#include <QSizeF>

#include "base/byte_reader.h"
#include "platform/desktop/metafile/record_types.h"
#include "toolkit/units.h"

namespace quorvale::metafile {

// What precedes the drawing records, in one form for all kinds of file. The device is the one that the file was
// recorded for; WMF files get one of 96 pixels per inch.
struct Header {
  Format format = Format::kWmf;
  // Offset in the file.
  std::size_t first_record = 0;
  QSizeF device_pixels;
  QSizeF device_millimetres;
  // The picture, in device pixels.
  QRectF frame;
  // The picture in logical units of a WMF file. Empty if the header does not say.
  QRectF window;
  TwipSize natural;
};

// Whether the bytes begin with the header of a metafile.
bool HasHeader(ByteSpan bytes);

// Fails with kBadPicture.
Header ReadHeader(ByteSpan bytes);

// Gives a WMF file its natural size, device and frame: `width` by `height` pixels.
void SetWmfSize(Header& header, double width, double height);

}  // namespace quorvale::metafile
