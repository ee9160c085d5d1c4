#pragma once

#include <memory>

#include "platform/desktop/pictures/bmp_header.h"
#include "platform/desktop/pictures/file_picture.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// A bitmap file. Only the rows and columns in view are read.
class BmpPicture : public FilePicture {
 public:
  static bool Recognizes(PictureFile& file);

  // Fails with kBadPicture.
  explicit BmpPicture(std::unique_ptr<PictureFile> file);

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override;

 private:
  BmpHeader header_;
};

}  // namespace quorvale
