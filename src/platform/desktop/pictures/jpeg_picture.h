#pragma once

#include <memory>

#include "platform/desktop/pictures/file_picture.h"
#include "platform/desktop/pictures/jpeg_decoder.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// A photo. Only the part in view is decoded, at a scale near the one it is shown at.
class JpegPicture : public FilePicture {
 public:
  static bool Recognizes(PictureFile& file);

  // Fails with kBadPicture.
  explicit JpegPicture(std::unique_ptr<PictureFile> file);

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override;

 private:
  std::unique_ptr<JpegDecoder> ReadHeader();

  // Has read the header, and waits for the first `Open`.
  std::unique_ptr<JpegDecoder> decoder_;
};

}  // namespace quorvale
