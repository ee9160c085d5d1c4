#pragma once

#include <memory>

#include "platform/win32/pictures/metafile.h"
#include "toolkit/picture.h"

namespace quorvale {

// A picture that is drawn, not stored: at any size as sharp as can be. It is drawn anew each time, over
// what is there.
class MetafilePicture : public Picture {
 public:
  explicit MetafilePicture(std::unique_ptr<Metafile> metafile) : metafile_(std::move(metafile)) {}

  TwipSize NaturalSize(float scale) const override;
  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;

 private:
  std::unique_ptr<Metafile> metafile_;
};

}  // namespace quorvale
