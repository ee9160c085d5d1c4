#include "platform/pictures/rendering.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/pictures/row_scaler.h"

namespace quorvale {
namespace {

// A pixel whose colours are multiplied by its alpha over one that is opaque.
Pixel Over(Pixel above, Pixel below) {
  const Pixel rest = 255U - (above >> 24U);
  const auto channel = [&](unsigned shift) {
    const Pixel sum = (above >> shift & 0xFFU) + ((below >> shift & 0xFFU) * rest + 127U) / 255U;
    return std::min<Pixel>(sum, 255U) << shift;
  };
  return 0xFF000000U | channel(16) | channel(8) | channel(0);
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

Rendering Render(RowSource& source, const Orientation& orientation, PixelSize box, const PixelRect& part) {
  const std::size_t count = static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height);
  if (count > (kPictureMemoryLimit - std::min(source.Memory(), kPictureMemoryLimit)) / sizeof(Pixel))
    FailLoad("Picture too large");
  if (part.IsEmpty()) {
    if (!source.Start(0, 1, 0) || source.Row(0) == nullptr) FailLoad("Damaged picture");
    return {};
  }
  Rendering rendering;
  rendering.box = box;
  rendering.part = part;
  rendering.pixels = std::make_unique_for_overwrite<Pixel[]>(count);
  rendering.opaque = source.IsOpaque();

  const PixelSize stored_box = orientation.Turn(box);
  const PixelRect stored = orientation.ToStored(part, box);
  const ScaleAxis across(stored_box.width, stored.left, stored.width, source.Across().length, source.Across().count);
  const ScaleAxis down(stored_box.height, stored.top, stored.height, source.Down().length, source.Down().count);
  if (!source.Start(across.Begin(), across.End(), down.Begin())) FailLoad("Damaged picture");
  int rows = 0;
  ScaleRows(source, across, down, [&](const Pixel* row, int y) {
    orientation.PlaceRow(row, y, rendering.View());
    ++rows;
  });
  if (rows == 0) FailLoad("Damaged picture");
  if (rows < stored.height) {
    const std::vector<Pixel> nothing(static_cast<std::size_t>(stored.width), 0);
    rendering.opaque = false;
    for (; rows < stored.height; ++rows) orientation.PlaceRow(nothing.data(), rows, rendering.View());
  }
  return rendering;
}

}  // namespace quorvale
