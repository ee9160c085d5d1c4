#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "base/byte_reader.h"
#include "platform/pictures/rendered_picture.h"
#include "platform/win32/windows_api.h"
#include "toolkit/picture.h"
#include "toolkit/units.h"

namespace quorvale {

// A recorded drawing of one of the two kinds: an enhanced or a Windows metafile.
class Metafile {
 public:
  virtual ~Metafile() = default;
  virtual TwipSize NaturalSize() const = 0;
  // Draws it, scaled to `box`. Stops after two seconds, between two records; what is drawn by then stays.
  virtual void Play(HDC context, const PixelRect& box) const = 0;
};

// Null if the bytes are no metafile. Fails with kBadPicture if they are a damaged one.
std::unique_ptr<Metafile> OpenMetafile(ByteSpan bytes);

// A metafile as a picture, drawn over what is there. On a ground of one colour, as every picture gets that is shown, it
// keeps the result: a backdrop and the picture in front of it are made of one drawing.
class MetafilePicture : public Picture {
 public:
  explicit MetafilePicture(std::unique_ptr<Metafile> metafile) : metafile_(std::move(metafile)) {}

  TwipSize NaturalSize(float scale) const override;
  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;

 private:
  Rendering Play(const PixelView& target, const PixelRect& box, const PixelRect& seen) const;

  std::unique_ptr<Metafile> metafile_;
  // What was drawn last, and on which ground. Empty if that had several colours.
  Rendering played_;
  std::optional<Pixel> ground_;
};

}  // namespace quorvale
