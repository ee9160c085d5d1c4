#include "platform/desktop/metafile/metafile_picture.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

#include "base/failure.h"
#include "platform/desktop/pictures/picture_file.h"

namespace quorvale {
namespace {

PixelRect Within(const PixelRect& box, PixelRect rect) {
  rect.left -= box.left;
  rect.top -= box.top;
  return rect;
}

[[noreturn]] void FailTooLarge() { throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture"); }

}  // namespace

MetafilePicture::MetafilePicture(std::vector<std::uint8_t> bytes) : metafile_(std::move(bytes)) {}

TwipSize MetafilePicture::NaturalSize(float /*scale*/) const { return metafile_.NaturalSize(); }

void MetafilePicture::Prepare(const PicturePlace& place) {
  const PixelRect box = place.box(NaturalSize(place.scale));
  RenderFor({box.width, box.height}, Within(box, Intersect(box, place.clip)));
}

void MetafilePicture::Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) {
  const PixelRect in_target = Intersect(box, target.Bounds());
  const PixelRect wanted = Intersect(in_target, clip);
  if (wanted.IsEmpty()) return;
  const PixelSize size{box.width, box.height};
  if (!rendering_.Shows(size, Within(box, wanted))) {
    try {
      RenderFor(size, Within(box, in_target));
    } catch (const Failure&) {
      return;
    }
  }
  rendering_.Paint(target, box.left, box.top, wanted);
}

void MetafilePicture::RenderFor(PixelSize box, const PixelRect& part) {
  rendering_ = {};
  if (part.IsEmpty()) return;
  const std::size_t count = static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height);
  if (count > kPictureMemoryLimit / sizeof(Pixel)) FailTooLarge();
  try {
    const QImage image = metafile_.Render({box.width, box.height}, {part.left, part.top, part.width, part.height});
    if (image.isNull()) FailTooLarge();
    Rendering made;
    made.box = box;
    made.part = part;
    made.opaque = false;
    made.pixels = std::make_unique_for_overwrite<Pixel[]>(count);
    for (int y = 0; y < part.height; ++y) {
      std::copy_n(reinterpret_cast<const Pixel*>(image.constScanLine(y)), part.width, made.View().Row(y));
    }
    rendering_ = std::move(made);
  } catch (const std::bad_alloc&) {
    FailTooLarge();
  }
}

}  // namespace quorvale
