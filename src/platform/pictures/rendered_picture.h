#pragma once

#include <memory>

#include "platform/pictures/orientation.h"
#include "platform/pictures/rendering.h"
#include "platform/pictures/row_source.h"
#include "toolkit/picture.h"

namespace quorvale {

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
