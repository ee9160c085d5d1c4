#pragma once

#include <memory>

#include "platform/desktop/pictures/file_picture.h"
#include "platform/desktop/pictures/gif_header.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// A GIF, of which the first frame is shown. No more of it is decoded than it takes to come to the last
// row in view.
class GifPicture : public FilePicture {
 public:
  static bool Recognizes(PictureFile& file);

  // Fails with kBadPicture.
  explicit GifPicture(std::unique_ptr<PictureFile> file);

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override;

 private:
  GifHeader header_;
};

}  // namespace quorvale
