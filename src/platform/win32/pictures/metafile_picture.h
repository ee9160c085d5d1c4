#pragma once

#include <memory>
#include <utility>

#include "base/byte_reader.h"
#include "platform/win32/windows_api.h"
#include "toolkit/picture.h"
#include "toolkit/units.h"

namespace quorvale {

// Drawing that was recorded as calls of the system, in one of its two kinds.
class Metafile {
 public:
  virtual ~Metafile() = default;
  virtual TwipSize NaturalSize() const = 0;
  // Draws it, scaled to `box`. Takes two seconds at the most, but for a record that takes longer by itself; what was
  // drawn by then stays.
  virtual void Play(HDC context, const PixelRect& box) const = 0;
};

// Null when the bytes are no metafile. Fails with kBadPicture when they are a damaged one.
std::unique_ptr<Metafile> OpenMetafile(ByteSpan bytes);

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
