#pragma once

#include <QImage>
#include <memory>

#include "platform/desktop/pictures/file_picture.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// A PNG, which Qt reads. It is decoded as a whole, and only what is seen of it is kept.
class PngPicture : public FilePicture {
 public:
  static bool Recognizes(PictureFile& file);

  // Fails with kBadPicture.
  explicit PngPicture(std::unique_ptr<PictureFile> file);

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override;

 private:
  QImage Decode();

  // Waits for the first `Open`.
  QImage image_;
};

}  // namespace quorvale
