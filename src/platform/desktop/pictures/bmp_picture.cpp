#include "platform/desktop/pictures/bmp_picture.h"

#include <utility>

#include "platform/desktop/pictures/bmp_rows.h"

namespace quorvale {

bool BmpPicture::Recognizes(PictureFile& file) { return file.BeginsWith("BM"); }

// The order of the rows is an orientation like any other.
BmpPicture::BmpPicture(std::unique_ptr<PictureFile> file)
    : FilePicture(std::move(file)), header_(ReadBmpHeader(File())) {
  Describe({header_.width, header_.height}, {.flipped = !header_.top_down});
}

std::unique_ptr<RowSource> BmpPicture::OpenRows(PixelSize /*stored_box*/) { return OpenBmpRows(File(), header_); }

}  // namespace quorvale
