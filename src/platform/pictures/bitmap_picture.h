#pragma once

#include <memory>

#include "platform/pictures/orientation.h"
#include "platform/pictures/rendered_picture.h"
#include "platform/pictures/row_source.h"

namespace quorvale {

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
