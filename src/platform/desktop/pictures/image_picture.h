#pragma once

#include <QImage>
#include <memory>

#include "platform/desktop/pictures/bitmap_picture.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {

// A picture that Qt reads, a GIF (its first frame) or a PNG. It is decoded as a whole, and only what is
// seen of it is kept.
class ImagePicture : public BitmapPicture {
 public:
  static bool Recognizes(PictureFile& file) { return FormatOf(file) != nullptr; }

  // Fails with kBadPicture.
  explicit ImagePicture(std::unique_ptr<PictureFile> file);

 protected:
  std::unique_ptr<RowSource> Open(PixelSize stored_box) override;

 private:
  // Qt's name for it, or null. Qt isn't left to look for a format itself: its plugins, of which any
  // program may bring more, would all get to see what a stranger's file holds.
  static const char* FormatOf(PictureFile& file);

  QImage Decode();

  std::unique_ptr<PictureFile> file_;
  // Waits for the first `Open`.
  QImage image_;
};

}  // namespace quorvale
