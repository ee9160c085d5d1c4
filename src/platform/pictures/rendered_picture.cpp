#include "platform/pictures/rendered_picture.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <span>
#include <utility>
#include <vector>

#include "platform/pictures/row_scaler.h"

namespace quorvale {
namespace {

// A premultiplied pixel over an opaque one.
Pixel Over(Pixel above, Pixel below) {
  const Pixel rest = 255U - (above >> 24U);
  const auto channel = [&](unsigned shift) {
    const Pixel sum = (above >> shift & 0xFFU) + Multiplied(below >> shift & 0xFFU, rest);
    return std::min<Pixel>(sum, 255U) << shift;
  };
  return 0xFF000000U | channel(16) | channel(8) | channel(0);
}

std::size_t PixelsIn(const PixelRect& part) {
  return static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height);
}

// Each of these two gives the number of rows that there are before the source ends.
int ReadRows(RowSource& source, int first, const PixelView& target) {
  int rows = 0;
  const auto width = static_cast<std::size_t>(target.width);
  while (rows < target.height && source.Read(first + rows, std::span(target.Row(rows), width))) ++rows;
  return rows;
}

int PlaceRows(RowSource& source, const ScaleAxis& across, const ScaleAxis& down, const Orientation& orientation,
              const ColourConversion& convert, const PixelView& target) {
  int rows = 0;
  std::vector<Pixel> converted(convert ? static_cast<std::size_t>(across.Count()) : 0);
  ScaleRows(source, across, down, [&](const Pixel* row, int y) {
    if (convert) {
      std::copy_n(row, converted.size(), converted.begin());
      convert(converted);
      row = converted.data();
    }
    orientation.PlaceRow(row, y, target);
    ++rows;
  });
  return rows;
}

}  // namespace

void Rendering::Paint(const PixelView& target, int left, int top, const PixelRect& clip) const {
  for (int y = clip.top; y < clip.Bottom(); ++y) {
    const Pixel* from = View().Row(y - top - part.top) + (clip.left - left - part.left);
    Pixel* to = target.Row(y) + clip.left;
    if (opaque) {
      std::copy_n(from, clip.width, to);
    } else {
      std::transform(from, from + clip.width, to, to, Over);
    }
  }
}

Rendering Render(RowSource& source, const Orientation& orientation, PixelSize box, const PixelRect& part,
                 const ColourConversion& convert, PixelMemory* memory) {
  const std::size_t count = PixelsIn(part);
  const std::size_t decoding = source.Memory();
  if (decoding > kPictureMemoryLimit || count > (kPictureMemoryLimit - decoding) / sizeof(Pixel)) {
    FailLoad("Picture too large");
  }
  if (part.IsEmpty()) {
    if (!source.Start(0, 1, 0) || source.Row(0) == nullptr) FailLoad("Damaged picture");
    return {};
  }
  Rendering rendering;
  rendering.box = box;
  rendering.part = part;
  rendering.pixels = TakePixels(memory, count);
  rendering.opaque = source.IsOpaque();

  const PixelSize stored_box = orientation.Turn(box);
  const PixelRect stored = orientation.ToStored(part, box);
  const ScaleAxis across(stored_box.width, stored.left, stored.width, source.Across().length, source.Across().count);
  const ScaleAxis down(stored_box.height, stored.top, stored.height, source.Down().length, source.Down().count);
  if (!source.Start(across.Begin(), across.End(), down.Begin())) FailLoad("Damaged picture");
  const bool is_as_stored = across.IsCopy() && down.IsCopy() && orientation == Orientation() && !convert;
  int rows = is_as_stored ? ReadRows(source, down.Begin(), rendering.View())
                          : PlaceRows(source, across, down, orientation, convert, rendering.View());
  if (rows == 0) FailLoad("Damaged picture");
  if (rows < stored.height) {
    const std::vector<Pixel> nothing(static_cast<std::size_t>(stored.width), 0);
    rendering.opaque = false;
    for (; rows < stored.height; ++rows) orientation.PlaceRow(nothing.data(), rows, rendering.View());
  }
  return rendering;
}

void RenderedPicture::Prepare(const PicturePlace& place) {
  const PixelRect box = place.box(NaturalSize(place.scale));
  RenderFor({box.width, box.height}, Within(box, Intersect(box, place.clip)), place.memory.get());
}

void RenderedPicture::MoveTo(PixelMemory& memory) {
  const auto pixels = rendering_.pixels ? memory.Take(PixelsIn(rendering_.part)) : nullptr;
  if (!pixels) return;
  std::copy_n(rendering_.pixels.get(), PixelsIn(rendering_.part), pixels.get());
  rendering_.pixels = pixels;
}

void RenderedPicture::Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) {
  const PixelRect in_target = Intersect(box, target.Bounds());
  const PixelRect wanted = Intersect(in_target, clip);
  if (wanted.IsEmpty()) return;
  const PixelSize size{box.width, box.height};
  if (!rendering_.Shows(size, Within(box, wanted))) {
    // All that is in view, since the next call may ask for another part of it.
    try {
      RenderFor(size, Within(box, in_target));
    } catch (const Failure&) {
      return;
    }
  }
  PaintShown(target, box.left, box.top, wanted);
}

std::shared_ptr<const Pixel[]> RenderedPicture::Covering(PixelSize target, const PixelRect& box) {
  const PixelRect part = Within(box, {0, 0, target.width, target.height});
  const bool is_all = rendering_.Shows({box.width, box.height}, part) && rendering_.part == part;
  return is_all && rendering_.opaque ? rendering_.pixels : nullptr;
}

void RenderedPicture::RenderFor(PixelSize box, const PixelRect& part, PixelMemory* memory) {
  try {
    // Frees the memory of the last one first.
    rendering_ = {};
    rendering_ = Make(box, part, memory);
  } catch (const std::bad_alloc&) {
    FailLoad("Picture too large");
  }
}

void BitmapPicture::Describe(PixelSize size, Orientation orientation, std::string date_taken) {
  date_taken_ = std::move(date_taken);
  size_ = orientation.Turn(size);
  orientation_ = orientation;
}

TwipSize BitmapPicture::NaturalSize(float scale) const {
  return {static_cast<float>(size_.width) * kTwipsPerPixel / scale,
          static_cast<float>(size_.height) * kTwipsPerPixel / scale};
}

Rendering BitmapPicture::Make(PixelSize box, const PixelRect& part, PixelMemory* memory) {
  return Render(*Open(orientation_.Turn(box)), orientation_, box, part, conversion_, memory);
}

}  // namespace quorvale
