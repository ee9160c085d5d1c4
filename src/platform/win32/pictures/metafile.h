#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/win32/windows_api.h"
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
std::unique_ptr<Metafile> OpenMetafile(std::span<const std::uint8_t> bytes);

// Of the two kinds, the same way.
std::unique_ptr<Metafile> OpenEnhancedMetafile(std::span<const std::uint8_t> bytes);
std::unique_ptr<Metafile> OpenWindowsMetafile(std::span<const std::uint8_t> bytes);

}  // namespace quorvale
