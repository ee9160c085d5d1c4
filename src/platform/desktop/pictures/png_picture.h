#pragma once

#include <memory>

#include "platform/desktop/pictures/file_picture.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

class PngDecoder;

// A PNG. Decoded row by row down to the last row in view; an interlaced one is decoded as a whole.
class PngPicture : public FilePicture {
 public:
  static bool Recognizes(PictureFile& file);

  // Fails with kBadPicture.
  explicit PngPicture(std::unique_ptr<PictureFile> file);
  ~PngPicture() override;

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override;

 private:
  std::unique_ptr<PngDecoder> ReadHeader();

  // Has read the header, and waits for the first `Open`.
  std::unique_ptr<PngDecoder> decoder_;
};

}  // namespace quorvale
