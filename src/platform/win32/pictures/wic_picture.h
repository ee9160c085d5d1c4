#pragma once

#include <memory>

#include "platform/pictures/rendered_picture.h"
#include "platform/win32/pictures/file_heads.h"
#include "platform/win32/pictures/picture_bytes.h"
#include "platform/win32/pictures/wic_codec.h"

namespace quorvale {

// A picture of any format that the system decodes; of an animated one the first frame.
class WicPicture : public BitmapPicture {
 public:
  // Fails with kBadPicture.
  explicit WicPicture(PictureBytes bytes);

 protected:
  std::unique_ptr<RowSource> Open(PixelSize stored_box) override;

 private:
  WicFrame OpenFrame() const;

  // The decoders must not outlive it.
  ComApartment apartment_;
  WicFactory factory_;
  PictureBytes bytes_;
  PixelSize frame_size_;
  GifCanvas canvas_;
  // Waits for the first `Open`.
  WicFrame frame_;
};

}  // namespace quorvale
