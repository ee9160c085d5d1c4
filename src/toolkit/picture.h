#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "toolkit/bitmap.h"
#include "toolkit/pixel_memory.h"
#include "toolkit/units.h"

namespace quorvale {

// A loaded picture, shared by controls. It does not need its file any more.
class Picture {
 public:
  virtual ~Picture() = default;

  // In twips. `scale` is device pixels per toolkit pixel: one pixel of a bitmap takes one device pixel. A metafile's
  // size comes from its header.
  virtual TwipSize NaturalSize(float scale) const = 0;

  // The day on which the camera took it, such as "2026-05-17". Empty if the file does not say it.
  virtual std::string DateTaken() const { return {}; }

  // What `Paint` with that box would leave on all of a target of that size, row by row, if the picture covers it and
  // has these pixels at hand. They don't change any more. Null otherwise.
  virtual std::shared_ptr<const Pixel[]> Covering(PixelSize /*target*/, const PixelRect& /*box*/) { return {}; }

  // Paints the picture, scaled to `box`, on the part of `target` inside `clip`. Transparent pixels leave the target
  // unchanged. If the picture proves to be damaged, paints what can be decoded.
  virtual void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) = 0;
};

// Where a picture will be shown. The loader uses this to decode it once, at the final scale and only the visible part.
struct PicturePlace {
  // Gives the box, in device pixels of the surface, for a picture of size `natural` (twips).
  std::function<PixelRect(const TwipSize& natural)> box;
  // The visible part of the surface, in device pixels.
  PixelRect clip;
  // Device pixels to the toolkit's pixel.
  float scale = 1;
  // For the picture's pixels. May be null.
  std::shared_ptr<PixelMemory> memory = {};
  // Called again and again while decoding takes long; lets events arrive. It may end the process. Without it, the
  // caller waits.
  std::function<void()> while_waiting = {};
};

// Reads picture files of all formats that the platform can decode.
class PictureLoader {
 public:
  virtual ~PictureLoader() = default;

  // Fails with kNotFound, kUnreadable or kBadPicture. Everything that decides on success is settled
  // before this returns.
  virtual std::shared_ptr<Picture> Load(const std::string& path, const PicturePlace& place) = 0;
};

// A picture format as lists, dialogs and help name it. Each platform has decoders, which go by the content of a file
// and not by its name.
struct PictureFormat {
  std::string_view name;
  // File patterns, separated by semicolons: "*.jpg;*.jpeg".
  std::string_view patterns;
  // Whether directory entries and the file dialog include these files only with the option `MoreKinds`.
  bool is_further_kind = false;
};

// In the order of the picture mask.
inline constexpr PictureFormat kPictureFormats[] = {
    {"BMP", "*.bmp"},
    {"GIF", "*.gif"},
    {"JPEG", "*.jpg;*.jpeg"},
    {"WMF", "*.wmf"},
    {"EMF", "*.emf"},
    {"PNG", "*.png", true},
    {"WebP", "*.webp", true},
    {"HEIC", "*.heic;*.heif", true},
    {"AVIF", "*.avif", true},
    {"JPEG XL", "*.jxl", true},
    {"TIFF", "*.tif;*.tiff", true},
};

}  // namespace quorvale
