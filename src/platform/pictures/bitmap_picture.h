#pragma once

#include <memory>

#include "platform/pictures/orientation.h"
#include "platform/pictures/rendering.h"
#include "platform/pictures/row_source.h"
#include "toolkit/picture.h"

namespace quorvale {

// A picture made of pixels, whatever its format. It keeps what was last on the screen, and decodes again for
// another size or part.
class BitmapPicture : public Picture {
 public:
  // Decodes for the place where the picture will be shown. Fails with kBadPicture.
  void Prepare(const PicturePlace& place);

  TwipSize NaturalSize(float scale) const override;
  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;

 protected:
  // The stored picture from its start, for a box of that size. Fails with kBadPicture.
  virtual std::unique_ptr<RowSource> Open(PixelSize stored_box) = 0;

  // The size as stored.
  void Describe(PixelSize size, Orientation orientation);

 private:
  void RenderFor(PixelSize box, const PixelRect& part);

  PixelSize size_;
  Orientation orientation_;
  Rendering rendering_;
};

}  // namespace quorvale
