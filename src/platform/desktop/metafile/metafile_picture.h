#pragma once

#include <cstdint>
#include <vector>

#include "platform/desktop/metafile/metafile.h"
#include "platform/pictures/rendered_picture.h"

namespace quorvale {

// A picture that is drawn, not stored: at any size as sharp as can be.
class MetafilePicture : public RenderedPicture {
 public:
  // Fails with kBadPicture.
  explicit MetafilePicture(std::vector<std::uint8_t> bytes);

  TwipSize NaturalSize(float scale) const override;

 private:
  Rendering Make(PixelSize box, const PixelRect& part) override;
  void PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const override;

  Metafile metafile_;
  // What comes out on white, if the drawing takes account of its background; what is shown then is on black.
  QImage on_white_;
};

}  // namespace quorvale
