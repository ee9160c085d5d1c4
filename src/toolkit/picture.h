#pragma once

#include <functional>
#include <memory>
#include <string>

#include "toolkit/pixel_view.h"
#include "toolkit/units.h"

namespace quorvale {

// A loaded picture. Controls share it; it owns all that it needs, so its file may vanish.
class Picture {
 public:
  virtual ~Picture() = default;

  // In twips, with `scale` device pixels to the toolkit's pixel. One pixel of a bitmap is one device
  // pixel of the screen; a metafile's size comes from its header.
  virtual TwipSize NaturalSize(float scale) const = 0;

  // Paints the picture, scaled to `box`, into those pixels of `target` that lie in `clip`. What is
  // transparent leaves the target as it is. Damage found only now paints what there is.
  virtual void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) = 0;
};

// Where a picture that is about to be loaded will be shown, so that it need be decoded only once, at
// the scale and the part that will be seen.
struct PicturePlace {
  // The box, in device pixels of the surface, of a picture of that natural size in twips.
  std::function<PixelRect(const TwipSize& natural)> box;
  // The part of the surface that is seen, in device pixels.
  PixelRect clip;
  // Device pixels to the toolkit's pixel.
  float scale = 1;
};

// Reads picture files: BMP, GIF, JPEG, WMF, EMF and whatever else the platform can decode.
class PictureLoader {
 public:
  virtual ~PictureLoader() = default;

  // Fails with kNotFound, kUnreadable or kBadPicture. Everything that decides on success is settled
  // before this returns.
  virtual std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) = 0;
};

}  // namespace quorvale
