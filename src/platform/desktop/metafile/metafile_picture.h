#pragma once

#include <cstdint>
#include <vector>

#include "platform/desktop/metafile/metafile.h"
#include "platform/pictures/rendering.h"
#include "toolkit/picture.h"

namespace quorvale {

// A picture that is drawn, not stored: at any size as sharp as can be. It keeps what was last on the
// screen, and is drawn again for another size or part.
class MetafilePicture : public Picture {
 public:
  // Fails with kBadPicture.
  explicit MetafilePicture(std::vector<std::uint8_t> bytes);

  // Draws for the place where the picture will be shown. Fails with kBadPicture.
  void Prepare(const PicturePlace& place);

  TwipSize NaturalSize(float scale) const override;
  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;

 private:
  void PaintByBackground(const PixelView& target, int left, int top, const PixelRect& clip) const;
  void RenderFor(PixelSize box, const PixelRect& part);

  Metafile metafile_;
  Rendering rendering_;
  // What comes out on white, if the drawing takes account of its background; `rendering_` then is on black.
  QImage on_white_;
};

}  // namespace quorvale
