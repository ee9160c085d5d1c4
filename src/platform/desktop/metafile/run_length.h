#pragma once

#include <QImage>
#include <vector>

#include "platform/desktop/metafile/byte_reader.h"

namespace quorvale {

// Fills in the pixels of a run-length encoded bitmap of 4 or 8 bits, from its last row up. What the
// bytes leave out stays.
void ReadRuns(ByteSpan bytes, int depth, const std::vector<QRgb>& colours, QImage& image);

}  // namespace quorvale
