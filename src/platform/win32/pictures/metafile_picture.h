#pragma once

#include <memory>
#include <utility>

#include "base/byte_reader.h"
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

// A metafile as a picture. It is drawn anew each time, over what is there.
class MetafilePicture : public Picture {
 public:
  explicit MetafilePicture(std::unique_ptr<Metafile> metafile) : metafile_(std::move(metafile)) {}

  TwipSize NaturalSize(float scale) const override;
  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override;

 private:
  std::unique_ptr<Metafile> metafile_;
};

}  // namespace quorvale
