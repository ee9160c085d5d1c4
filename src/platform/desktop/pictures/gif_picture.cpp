#include "platform/desktop/pictures/gif_picture.h"

#include <utility>

#include "platform/desktop/pictures/gif_rows.h"

namespace quorvale {

bool GifPicture::Recognizes(PictureFile& file) { return file.BeginsWith("GIF8"); }

GifPicture::GifPicture(std::unique_ptr<PictureFile> file)
    : FilePicture(std::move(file)), header_(ReadGifHeader(File())) {
  Describe(header_.size, {});
}

std::unique_ptr<RowSource> GifPicture::OpenRows(PixelSize /*stored_box*/) { return OpenGifRows(File(), header_); }

}  // namespace quorvale
