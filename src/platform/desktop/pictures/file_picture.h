#pragma once

#include <memory>
#include <utility>

#include "platform/desktop/pictures/picture_file.h"
#include "platform/pictures/bitmap_picture.h"

namespace quorvale {

// A picture of pixels that keeps its file at hand.
class FilePicture : public BitmapPicture {
 protected:
  explicit FilePicture(std::unique_ptr<PictureFile> file) : file_(std::move(file)) {}

  PictureFile& File() { return *file_; }

  // The stored picture from its start, for a box of that size. Fails with kBadPicture.
  virtual std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) = 0;

 private:
  std::unique_ptr<RowSource> Open(PixelSize stored_box) final {
    file_->StartClock();
    return OpenRows(stored_box);
  }

  std::unique_ptr<PictureFile> file_;
};

}  // namespace quorvale
