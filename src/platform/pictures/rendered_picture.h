#pragma once

#include <cstddef>
#include <memory>

#include "base/failure.h"
#include "platform/pictures/orientation.h"
#include "platform/pictures/row_source.h"
#include "toolkit/picture.h"
#include "toolkit/pixel_view.h"
#include "toolkit/units.h"

namespace quorvale {

// No picture is read, decoded or held that takes more bytes than this.
inline constexpr std::size_t kPictureMemoryLimit = std::size_t{512} << 20U;

// Of a picture that can't be shown.
[[noreturn]] inline void FailLoad(const char* what, FailureNumber number = FailureNumber::kBadPicture) {
  throw Failure(number, what, "LoadPicture");
}

// `rect` as seen from the corner of `box`.
inline PixelRect Within(const PixelRect& box, PixelRect rect) {
  rect.left -= box.left;
  rect.top -= box.top;
  return rect;
}

// A part of a picture scaled to a box: what is on the screen.
struct Rendering {
  PixelSize box;
  // In the box.
  PixelRect part;
  std::unique_ptr<Pixel[]> pixels;
  // Whether every pixel's alpha is 255; elsewhere colours are multiplied by it.
  bool opaque = true;

  PixelView View() const { return {pixels.get(), part.width, part.height, part.width}; }
  bool Shows(PixelSize size, const PixelRect& wanted) const {
    return pixels != nullptr && size == box && Intersect(wanted, part) == wanted;
  }
  // Where the picture's box has its corner at `left`, `top`. `clip` lies in the part and in the target.
  void Paint(const PixelView& target, int left, int top, const PixelRect& clip) const;
};

// Makes one from a picture that is stored turned. An empty part is allowed: its source is tried out all
// the same, so that whether a picture is good does not hang on where it will be shown. Fails with
// kBadPicture if nothing can be made out or it takes too much memory; where damage begins later, the
// rest stays transparent.
Rendering Render(RowSource& source, const Orientation& orientation, PixelSize box, const PixelRect& part);

// A picture that keeps what was last on the screen, and is made again for another size or part.
class RenderedPicture : public Picture {
 public:
  // Makes it for the place where it will be shown. Fails with kBadPicture.
  void Prepare(const PicturePlace& place);

  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;

 protected:
  const Rendering& Shown() const { return rendering_; }

 private:
  // That part of the picture at the size of that box. Fails with kBadPicture, or for want of memory.
  virtual Rendering Make(PixelSize box, const PixelRect& part) = 0;
  // Paints what is shown. The box has its corner at `left`, `top`; `clip` lies in the part and in the target.
  virtual void PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const {
    rendering_.Paint(target, left, top, clip);
  }

  void RenderFor(PixelSize box, const PixelRect& part);

  Rendering rendering_;
};

// A picture made of pixels, whatever its format.
class BitmapPicture : public RenderedPicture {
 public:
  TwipSize NaturalSize(float scale) const override;

 protected:
  // The stored picture from its start, for a box of that size. Fails with kBadPicture.
  virtual std::unique_ptr<RowSource> Open(PixelSize stored_box) = 0;

  // The size as stored.
  void Describe(PixelSize size, Orientation orientation);

 private:
  Rendering Make(PixelSize box, const PixelRect& part) override;

  PixelSize size_;
  Orientation orientation_;
};

}  // namespace quorvale
