#pragma once

#include <QRectF>
#include <QSizeF>

#include "platform/desktop/metafile/record_stream.h"
#include "toolkit/units.h"

namespace quorvale {

// What stands before the records, in one form for every kind of file. The records draw on a device,
// whose pixels are the units of what is called "device" here.
struct MetafileHeader {
  MetafileKind kind = MetafileKind::kWmf;
  std::size_t first_record = 0;
  // The device: pixels and millimetres.
  QSizeF device_pixels;
  QSizeF device_millimetres;
  // What of the device is the picture.
  QRectF frame;
  // The picture in the units that a WMF file draws in; empty unless its header tells.
  QRectF window;
  TwipSize natural;
};

// Whether the bytes begin as a metafile does.
bool IsMetafile(ByteSpan bytes);

// Fails with kBadPicture.
MetafileHeader ReadMetafileHeader(ByteSpan bytes);

// A WMF file without a size in its header gets one: `width` and `height` in device pixels.
void SetWmfSize(MetafileHeader& header, double width, double height);

}  // namespace quorvale
