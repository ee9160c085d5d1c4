#include "platform/win32/pictures/metafile_picture.h"

#include <algorithm>

#include "platform/win32/toolkit/gdi.h"

namespace quorvale {

std::unique_ptr<Metafile> OpenMetafile(std::span<const std::uint8_t> bytes) {
  auto metafile = OpenEnhancedMetafile(bytes);
  return metafile ? std::move(metafile) : OpenWindowsMetafile(bytes);
}

TwipSize MetafilePicture::NaturalSize(float /*scale*/) const { return metafile_->NaturalSize(); }

void MetafilePicture::Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) {
  const PixelRect seen = Intersect(Intersect(box, target.Bounds()), clip);
  if (seen.IsEmpty()) return;
  const PixelBitmap bitmap(seen.width, seen.height);
  const PixelView& drawn = bitmap.Pixels();
  for (int y = 0; y < seen.height; ++y) std::copy_n(target.Row(seen.top + y) + seen.left, seen.width, drawn.Row(y));
  const MemoryContext context;
  context.Select(bitmap.Get());
  SetStretchBltMode(context.Get(), HALFTONE);
  metafile_->Play(context.Get(), {box.left - seen.left, box.top - seen.top, box.width, box.height});
  GdiFlush();
  for (int y = 0; y < seen.height; ++y) {
    const Pixel* from = drawn.Row(y);
    std::transform(from, from + seen.width, target.Row(seen.top + y) + seen.left,
                   [](Pixel pixel) { return pixel | 0xFF000000U; });
  }
}

}  // namespace quorvale
