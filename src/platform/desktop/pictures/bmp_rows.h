#pragma once

#include <memory>

#include "platform/desktop/pictures/bmp_header.h"
#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/row_source.h"

namespace quorvale {

// The rows of a bitmap in the order of the file. Both arguments outlive the rows.
std::unique_ptr<RowSource> OpenBmpRows(PictureFile& file, const BmpHeader& header);

}  // namespace quorvale
