#include "platform/win32/pictures/metafile_picture.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "platform/pictures/metafile_head.h"
#include "platform/win32/toolkit/gdi.h"

namespace quorvale {
namespace {

// One run through the records of a metafile: its time, and the states that it has saved.
class Playing {
 public:
  // Whether the two seconds of a picture are over.
  bool IsOver() const { return std::chrono::steady_clock::now() - start_ > kTime; }

  void StateSaved() { ++saved_; }

  // Negative: counts back from the state saved last, which is -1. Positive: the state saved at that depth, from 1.
  // Returns it as a negative number. 0 if this metafile has not saved it: earlier states are the caller's.
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

// Enhanced metafiles.

// Type and size of a record.
constexpr std::size_t kEnhancedHead = 8;
constexpr double kTwipsPerHundredthMillimetre = 1440 / 2540.0;
// Twips: more than any screen has, so that what is computed with them stays finite.
constexpr double kLongestSide = 3e6;

struct DeleteEnhanced {
  void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};
using EnhancedHandle = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, DeleteEnhanced>;

// Whether each record lies within the file and the last one is the end mark.
bool IsWhole(ByteSpan bytes) {
  for (ByteReader record(bytes); record.Left() >= kEnhancedHead;) {
    const std::size_t left = record.Left();
    const std::uint32_t type = record.U32();
    const std::uint32_t size = record.U32();
    if (size < kEnhancedHead || size % 4 != 0 || size > left) return false;
    if (type == EMR_EOF) return true;
    record.Skip(size - kEnhancedHead);
  }
  return false;
}

int CALLBACK PlayEnhancedRecord(HDC context, HANDLETABLE* objects, const ENHMETARECORD* record, int count,
                                LPARAM data) {
  auto& playing = *reinterpret_cast<Playing*>(data);
  if (playing.IsOver()) return 0;
  if (record->iType == EMR_SAVEDC) playing.StateSaved();
  if (record->iType != EMR_RESTOREDC) {
    PlayEnhMetaFileRecord(context, objects, record, static_cast<UINT>(count));
  } else if (record->nSize >= sizeof(EMRRESTOREDC)) {
    EMRRESTOREDC restore = *reinterpret_cast<const EMRRESTOREDC*>(record);
    restore.iRelative = playing.RestoreState(restore.iRelative);
    const auto* const own = reinterpret_cast<const ENHMETARECORD*>(&restore);
    if (restore.iRelative != 0) PlayEnhMetaFileRecord(context, objects, own, static_cast<UINT>(count));
  }
  return 1;
}

// Boxes of enhanced metafiles include their right and bottom edges.
RECT PlayRect(const PixelRect& box) { return {box.left, box.top, box.Right() - 1, box.Bottom() - 1}; }

class EnhancedMetafile : public Metafile {
 public:
  explicit EnhancedMetafile(EnhancedHandle handle) : handle_(std::move(handle)) {
    GetEnhMetaFileHeader(handle_.get(), sizeof header_, &header_);
  }

  TwipSize NaturalSize() const override {
    const RECTL& frame = header_.rclFrame;
    return {Side(static_cast<double>(frame.right) - frame.left), Side(static_cast<double>(frame.bottom) - frame.top)};
  }

  void Play(HDC context, const PixelRect& box) const override {
    const RECT rect = PlayRect(box);
    Playing playing;
    EnumEnhMetaFile(context, handle_.get(), &PlayEnhancedRecord, &playing, &rect);
  }

 private:
  static float Side(double length) {
    return static_cast<float>(std::clamp(std::abs(length) * kTwipsPerHundredthMillimetre, 1.0, kLongestSide));
  }

  EnhancedHandle handle_;
  ENHMETAHEADER header_{};
};

std::unique_ptr<Metafile> OpenEnhancedMetafile(ByteSpan bytes) {
  if (!IsEmfHead(bytes)) return nullptr;
  EnhancedHandle handle;
  if (IsWhole(bytes)) handle.reset(SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data()));
  if (!handle) FailLoad("Damaged metafile");
  return std::make_unique<EnhancedMetafile>(std::move(handle));
}

// Windows metafiles, with a header that says their size or without.

// The units of a file that does not say.
constexpr double kUnitsPerInch = 96;

struct DeletePlain {
  void operator()(HMETAFILE metafile) const { DeleteMetaFile(metafile); }
};
using PlainHandle = std::unique_ptr<std::remove_pointer_t<HMETAFILE>, DeletePlain>;

// The picture within the plane that the records draw in. The sides may be negative.
struct Window {
  int left = 0;
  int top = 0;
  int width = static_cast<int>(kUnitsPerInch);
  int height = static_cast<int>(kUnitsPerInch);
  double units_per_inch = kUnitsPerInch;
};

Window WindowOf(const PlaceableHead& head) {
  return {head.left, head.top, head.right - head.left, head.bottom - head.top, head.units_per_inch};
}

// Reads origin and size from the first records that set them. False unless every record lies within the file and the
// last one is the end mark.
bool ReadRecords(ByteSpan records, Window& window) {
  bool has_origin = false;
  bool has_size = false;
  for (std::size_t at = 0; at + 6 <= records.size();) {
    ByteReader reader(records, at);
    const std::size_t words = reader.U32();
    const unsigned function = reader.U16();
    if (words < 3 || words > (records.size() - at) / 2) return false;
    if (function == 0) return true;
    if (function == META_SETWINDOWORG && !std::exchange(has_origin, true)) {
      window.top = reader.I16();
      window.left = reader.I16();
    } else if (function == META_SETWINDOWEXT && !std::exchange(has_size, true)) {
      window.height = reader.I16();
      window.width = reader.I16();
    }
    at += words * 2;
  }
  return false;
}

int CALLBACK PlayPlainRecord(HDC context, HANDLETABLE* objects, METARECORD* record, int count, LPARAM data) {
  constexpr DWORD kRestoreWords = 4;
  auto& playing = *reinterpret_cast<Playing*>(data);
  if (playing.IsOver()) return 0;
  if (record->rdFunction == META_SAVEDC) playing.StateSaved();
  if (record->rdFunction != META_RESTOREDC) {
    PlayMetaFileRecord(context, objects, record, static_cast<UINT>(count));
  } else if (record->rdSize >= kRestoreWords) {
    const int back = playing.RestoreState(static_cast<std::int16_t>(record->rdParm[0]));
    if (back != 0) RestoreDC(context, back);
  }
  return 1;
}

class WindowsMetafile : public Metafile {
 public:
  WindowsMetafile(PlainHandle handle, const Window& window) : handle_(std::move(handle)), window_(window) {}

  TwipSize NaturalSize() const override { return {Side(window_.width), Side(window_.height)}; }

  // The records may set a window of their own, never a viewport.
  void Play(HDC context, const PixelRect& box) const override {
    SetMapMode(context, MM_ANISOTROPIC);
    SetViewportOrgEx(context, box.left, box.top, nullptr);
    SetViewportExtEx(context, box.width, box.height, nullptr);
    SetWindowOrgEx(context, window_.left, window_.top, nullptr);
    SetWindowExtEx(context, window_.width, window_.height, nullptr);
    Playing playing;
    EnumMetaFile(context, handle_.get(), &PlayPlainRecord, reinterpret_cast<LPARAM>(&playing));
  }

 private:
  float Side(int length) const {
    return static_cast<float>(std::max(1.0, std::abs(length) * kTwipsPerInch / window_.units_per_inch));
  }

  PlainHandle handle_;
  Window window_;
};

// Null and failures as of `OpenMetafile`.
std::unique_ptr<Metafile> OpenWindowsMetafile(ByteSpan bytes) {
  const bool is_placeable = IsPlaceableHead(bytes) && bytes.size() > kPlaceableHeadSize;
  const ByteSpan plain = is_placeable ? bytes.subspan(kPlaceableHeadSize) : bytes;
  if (!IsWmfHead(plain)) return nullptr;
  Window window;
  PlainHandle handle;
  if (ReadRecords(plain.subspan(kWmfHeadSize), window)) {
    handle.reset(SetMetaFileBitsEx(static_cast<UINT>(plain.size()), plain.data()));
  }
  if (!handle) FailLoad("Damaged metafile");
  if (is_placeable) window = WindowOf(ReadPlaceableHead(bytes));
  if (window.width == 0 || window.height == 0) window = {};
  return std::make_unique<WindowsMetafile>(std::move(handle), window);
}

// The colour of a part of the target, which is not empty. No value if it has several.
std::optional<Pixel> OnlyColour(const PixelView& target, const PixelRect& part) {
  const Pixel first = target.Row(part.top)[part.left];
  for (int y = part.top; y < part.Bottom(); ++y) {
    const Pixel* const row = target.Row(y) + part.left;
    if (std::any_of(row, row + part.width, [first](Pixel pixel) { return pixel != first; })) return std::nullopt;
  }
  return first;
}

}  // namespace

std::unique_ptr<Metafile> OpenMetafile(ByteSpan bytes) {
  auto metafile = OpenEnhancedMetafile(bytes);
  return metafile ? std::move(metafile) : OpenWindowsMetafile(bytes);
}

TwipSize MetafilePicture::NaturalSize(float /*scale*/) const { return metafile_->NaturalSize(); }

void MetafilePicture::Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) {
  const PixelRect seen = Intersect(Intersect(box, target.Bounds()), clip);
  if (seen.IsEmpty()) return;
  const std::optional<Pixel> ground = OnlyColour(target, seen);
  if (!ground || ground != ground_ || !played_.Shows({box.width, box.height}, Within(box, seen))) {
    played_ = Play(target, box, seen);
  }
  ground_ = ground;
  played_.Paint(target, box.left, box.top, seen);
  if (!ground) played_ = {};
}

Rendering MetafilePicture::Play(const PixelView& target, const PixelRect& box, const PixelRect& seen) const {
  const PixelBitmap bitmap(seen.width, seen.height);
  const PixelView& drawn = bitmap.Pixels();
  for (int y = 0; y < seen.height; ++y) std::copy_n(target.Row(seen.top + y) + seen.left, seen.width, drawn.Row(y));
  const MemoryContext context;
  context.Select(bitmap.Get());
  SetStretchBltMode(context.Get(), HALFTONE);
  metafile_->Play(context.Get(), {box.left - seen.left, box.top - seen.top, box.width, box.height});
  GdiFlush();
  Rendering played;
  played.box = {box.width, box.height};
  played.part = Within(box, seen);
  played.pixels = std::make_unique_for_overwrite<Pixel[]>(static_cast<std::size_t>(seen.width) *
                                                          static_cast<std::size_t>(seen.height));
  for (int y = 0; y < seen.height; ++y) {
    const Pixel* from = drawn.Row(y);
    std::transform(from, from + seen.width, played.View().Row(y), [](Pixel pixel) { return pixel | 0xFF000000U; });
  }
  return played;
}

}  // namespace quorvale
