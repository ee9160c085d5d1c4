#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>

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
std::unique_ptr<Metafile> OpenMetafile(std::span<const std::uint8_t> bytes);

// Of the two kinds, the same way.
std::unique_ptr<Metafile> OpenEnhancedMetafile(std::span<const std::uint8_t> bytes);
std::unique_ptr<Metafile> OpenWindowsMetafile(std::span<const std::uint8_t> bytes);

// One playing of a metafile's records on a device context that was handed to it.
class Playing {
 public:
  // Whether the two seconds are over that a picture may take, however many records it has. What was drawn by then
  // stays.
  bool IsOver() const { return std::chrono::steady_clock::now() - start_ > kTime; }

  void StateSaved() { ++saved_; }

  // How far back, as a negative number, a restoring record may go that names a state from the last one back, or from
  // 1 for the first. 0 where it names none that this metafile has saved: the one before is the caller's.
  int RestoreState(int which) {
    const int index = which < 0 ? saved_ + which : which - 1;
    if (index < 0 || index >= saved_) return 0;
    const int back = index - saved_;
    saved_ = index;
    return back;
  }

 private:
  static constexpr std::chrono::milliseconds kTime{2000};

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  int saved_ = 0;
};

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
