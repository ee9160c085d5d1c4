#include "platform/pictures/rendered_picture.h"

#include <new>

namespace quorvale {

void RenderedPicture::Prepare(const PicturePlace& place) {
  const PixelRect box = place.box(NaturalSize(place.scale));
  RenderFor({box.width, box.height}, Within(box, Intersect(box, place.clip)));
}

void RenderedPicture::Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) {
  const PixelRect in_target = Intersect(box, target.Bounds());
  const PixelRect wanted = Intersect(in_target, clip);
  if (wanted.IsEmpty()) return;
  const PixelSize size{box.width, box.height};
  if (!rendering_.Shows(size, Within(box, wanted))) {
    // All of it that can be seen: the next call may ask for another part.
    try {
      RenderFor(size, Within(box, in_target));
    } catch (const Failure&) {
      return;
    }
  }
  PaintShown(target, box.left, box.top, wanted);
}

void RenderedPicture::RenderFor(PixelSize box, const PixelRect& part) {
  try {
    // The last one makes room first.
    rendering_ = {};
    rendering_ = Make(box, part);
  } catch (const std::bad_alloc&) {
    FailLoad("Picture too large");
  }
}

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
