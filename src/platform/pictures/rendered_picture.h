#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "base/failure.h"
#include "platform/pictures/orientation.h"
#include "platform/pictures/row_source.h"
#include "toolkit/bitmap.h"
#include "toolkit/picture.h"
#include "toolkit/units.h"

namespace quorvale {

// No picture is read, decoded or held that takes more bytes than this.
inline constexpr std::size_t kPictureMemoryLimit = std::size_t{512} << 20U;

// Fails the load of a picture that can't be shown.
[[noreturn]] inline void FailLoad(const char* what, FailureNumber number = FailureNumber::kBadPicture) {
  throw Failure(number, what, "LoadPicture");
}

// `rect` as seen from the corner of `box`.
inline PixelRect Within(const PixelRect& box, PixelRect rect) {
  rect.left -= box.left;
  rect.top -= box.top;
  return rect;
}

// A part of a picture scaled to a box.
struct Rendering {
  PixelSize box;
  // In coordinates of the box.
  PixelRect part;
  std::shared_ptr<Pixel[]> pixels;
  // Whether every pixel's alpha is 255. Otherwise colours are premultiplied.
  bool opaque = true;

  PixelView View() const { return {pixels.get(), part.width, part.height, part.width}; }
  bool Shows(PixelSize size, const PixelRect& wanted) const {
    return pixels != nullptr && size == box && Intersect(wanted, part) == wanted;
  }
  // Where the picture's box has its corner at `left`, `top`. `clip` lies in the part and in the target.
  void Paint(const PixelView& target, int left, int top, const PixelRect& clip) const;
};

// Converts a row of a rendering to the colours of the screen. Colours are premultiplied.
using ColourConversion = std::function<void(std::span<Pixel> row)>;

// Renders a picture that is stored in `orientation`. For an empty part one row is decoded all the same, so that a
// damaged picture fails wherever it will be shown. Fails with kBadPicture if no row can be decoded or it takes too much
// memory. If damage begins later, the rest stays transparent. Colours are converted after scaling, when there are
// fewest pixels; an empty conversion costs nothing. The pixels are kept in `memory` if it has room.
Rendering Render(RowSource& source, const Orientation& orientation, PixelSize box, const PixelRect& part,
                 const ColourConversion& convert = {}, PixelMemory* memory = nullptr);

// A picture that keeps its last rendering, and is rendered again for another size or part.
class RenderedPicture : public Picture {
 public:
  // Renders it for the place where it will be shown. Fails with kBadPicture.
  void Prepare(const PicturePlace& place);
  // Keeps the pixels there from now on, if there is any. Fails with std::bad_alloc.
  void MoveTo(PixelMemory& memory);

  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;
  std::shared_ptr<const Pixel[]> Covering(PixelSize target, const PixelRect& box) override;

 protected:
  const Rendering& Shown() const { return rendering_; }

 private:
  // Renders that part of the picture at the size of the box. `memory` is for its pixels and may be null. Fails with
  // kBadPicture or std::bad_alloc.
  virtual Rendering Make(PixelSize box, const PixelRect& part, PixelMemory* memory) = 0;
  // Paints the last rendering. The box has its corner at `left`, `top`; `clip` lies in the part and in the target. Not
  // asked where an opaque rendering covers the target, see `Covering`.
  virtual void PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const {
    rendering_.Paint(target, left, top, clip);
  }

  void RenderFor(PixelSize box, const PixelRect& part, PixelMemory* memory = nullptr);

  Rendering rendering_;
};

// A picture made of pixels, whatever its format.
class BitmapPicture : public RenderedPicture {
 public:
  TwipSize NaturalSize(float scale) const override;
  std::string DateTaken() const override { return date_taken_; }

 protected:
  // Starts decoding, for a box of that size as stored. Fails with kBadPicture.
  virtual std::unique_ptr<RowSource> Open(PixelSize stored_box) = 0;

  // To be called once. `size` is the size as stored.
  void Describe(PixelSize size, Orientation orientation, std::string date_taken = {});
  // For a picture whose colours are not those of the screen.
  void ConvertColours(ColourConversion conversion) { conversion_ = std::move(conversion); }

 private:
  Rendering Make(PixelSize box, const PixelRect& part, PixelMemory* memory) override;

  PixelSize size_;
  Orientation orientation_;
  std::string date_taken_;
  ColourConversion conversion_;
};

}  // namespace quorvale
