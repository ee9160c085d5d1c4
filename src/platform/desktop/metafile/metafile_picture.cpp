#include "platform/desktop/metafile/metafile_picture.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

#include "base/failure.h"
#include "platform/desktop/metafile/header.h"
#include "platform/pictures/rendering.h"

namespace quorvale {
namespace {

// Interpolates each channel between the pictures on black and on white by the level of the background.
Pixel Between(Pixel on_black, Pixel on_white, Pixel ground) {
  const auto channel = [&](unsigned shift) {
    const auto black = static_cast<int>(on_black >> shift & 0xFFU);
    const auto white = static_cast<int>(on_white >> shift & 0xFFU);
    const auto level = static_cast<int>(ground >> shift & 0xFFU);
    return static_cast<Pixel>(black + (white - black) * level / 255) << shift;
  };
  return 0xFF000000U | channel(16) | channel(8) | channel(0);
}

[[noreturn]] void FailTooLarge() { throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture"); }

}  // namespace

bool IsMetafile(std::span<const std::uint8_t> bytes) { return metafile::HasHeader(bytes); }

MetafilePicture::MetafilePicture(std::vector<std::uint8_t> bytes) : player_(std::move(bytes)) {}

TwipSize MetafilePicture::NaturalSize(float /*scale*/) const { return player_.NaturalSize(); }

void MetafilePicture::PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const {
  if (on_white_.isNull()) {
    Shown().Paint(target, left, top, clip);
    return;
  }
  const PixelRect& part = Shown().part;
  for (int y = clip.top; y < clip.Bottom(); ++y) {
    const int from_y = y - top - part.top;
    const int from_x = clip.left - left - part.left;
    const Pixel* black = Shown().View().Row(from_y) + from_x;
    const Pixel* white = reinterpret_cast<const Pixel*>(on_white_.constScanLine(from_y)) + from_x;
    Pixel* to = target.Row(y) + clip.left;
    for (int x = 0; x < clip.width; ++x) to[x] = Between(black[x], white[x], to[x]);
  }
}

Rendering MetafilePicture::Make(PixelSize box, const PixelRect& part) {
  on_white_ = {};
  if (part.IsEmpty()) return {};
  const std::size_t count = static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height);
  if (count > kPictureMemoryLimit / sizeof(Pixel)) FailTooLarge();
  const auto [image, on_white] =
      player_.Render({box.width, box.height}, {part.left, part.top, part.width, part.height});
  if (image.isNull()) FailTooLarge();
  Rendering made;
  made.box = box;
  made.part = part;
  made.opaque = false;
  made.pixels = std::make_unique_for_overwrite<Pixel[]>(count);
  for (int y = 0; y < part.height; ++y) {
    std::copy_n(reinterpret_cast<const Pixel*>(image.constScanLine(y)), part.width, made.View().Row(y));
  }
  on_white_ = on_white;
  return made;
}

}  // namespace quorvale
