#include "platform/pictures/bitmap_picture.h"

#include <new>

#include "base/failure.h"

namespace quorvale {
namespace {

// `rect` as seen from the corner of `box`.
PixelRect Within(const PixelRect& box, PixelRect rect) {
  rect.left -= box.left;
  rect.top -= box.top;
  return rect;
}

}  // namespace

void BitmapPicture::Describe(PixelSize size, Orientation orientation) {
  size_ = orientation.Turn(size);
  orientation_ = orientation;
}

TwipSize BitmapPicture::NaturalSize(float scale) const {
  return {static_cast<float>(size_.width) * kTwipsPerPixel / scale,
          static_cast<float>(size_.height) * kTwipsPerPixel / scale};
}

void BitmapPicture::Prepare(const PicturePlace& place) {
  const PixelRect box = place.box(NaturalSize(place.scale));
  RenderFor({box.width, box.height}, Within(box, Intersect(box, place.clip)));
}

void BitmapPicture::Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) {
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
  rendering_.Paint(target, box.left, box.top, wanted);
}

void BitmapPicture::RenderFor(PixelSize box, const PixelRect& part) {
  try {
    // The last one makes room first.
    rendering_ = {};
    rendering_ = Render(*Open(orientation_.Turn(box)), orientation_, box, part);
  } catch (const std::bad_alloc&) {
    throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture");
  }
}

}  // namespace quorvale
