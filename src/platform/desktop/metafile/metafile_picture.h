#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/desktop/metafile/player.h"
#include "platform/pictures/rendered_picture.h"

namespace quorvale {

// Whether a file that begins with these bytes is a WMF or EMF file.
bool IsMetafile(std::span<const std::uint8_t> bytes);

// A WMF or EMF file, drawn anew for each size at which it is shown.
class MetafilePicture : public RenderedPicture {
 public:
  // Fails with kBadPicture.
  explicit MetafilePicture(std::vector<std::uint8_t> bytes);

  TwipSize NaturalSize(float scale) const override;

 private:
  Rendering Make(PixelSize box, const PixelRect& part) override;
  void PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const override;

  metafile::Player player_;
  // Null unless the drawing depends on its background: then Shown() is the drawing on black, this the one on white.
  QImage on_white_;
};

}  // namespace quorvale
