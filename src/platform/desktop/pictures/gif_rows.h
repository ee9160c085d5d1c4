#pragma once

#include <memory>

#include "platform/desktop/pictures/gif_header.h"
#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/row_source.h"

namespace quorvale {

// The rows of a GIF's first frame. Both arguments outlive the rows.
std::unique_ptr<RowSource> OpenGifRows(PictureFile& file, const GifHeader& header);

}  // namespace quorvale
