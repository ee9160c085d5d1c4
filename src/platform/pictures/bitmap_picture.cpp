#include "platform/pictures/bitmap_picture.h"

namespace quorvale {

void BitmapPicture::Describe(PixelSize size, Orientation orientation) {
  size_ = orientation.Turn(size);
  orientation_ = orientation;
}

TwipSize BitmapPicture::NaturalSize(float scale) const {
  return {static_cast<float>(size_.width) * kTwipsPerPixel / scale,
          static_cast<float>(size_.height) * kTwipsPerPixel / scale};
}

Rendering BitmapPicture::Make(PixelSize box, const PixelRect& part) {
  return Render(*Open(orientation_.Turn(box)), orientation_, box, part);
}

}  // namespace quorvale
