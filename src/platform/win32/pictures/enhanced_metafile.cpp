#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

#include "base/failure.h"
#include "platform/win32/pictures/metafile_picture.h"
#include "platform/win32/pictures/picture_bytes.h"

namespace quorvale {
namespace {

constexpr double kTwipsPerHundredthMillimetre = 1440 / 2540.0;
// Twips: nobody has a larger screen, and what is computed with them stays finite.
constexpr double kLongestSide = 3e6;

struct DeleteMetafile {
  void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};
using MetafileHandle = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, DeleteMetafile>;

// Whether each record lies within the file and the last one is the end mark.
bool IsWhole(std::span<const std::uint8_t> bytes) {
  for (std::size_t at = 0; at + 8 <= bytes.size();) {
    const std::uint32_t type = LongAt(bytes, at);
    const std::uint32_t size = LongAt(bytes, at + 4);
    if (size < 8 || size % 4 != 0 || size > bytes.size() - at) return false;
    if (type == EMR_EOF) return true;
    at += size;
  }
  return false;
}

int CALLBACK PlayRecord(HDC context, HANDLETABLE* objects, const ENHMETARECORD* record, int count, LPARAM data) {
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

// A box's right and bottom edges are those pixels that it still has, for metafiles of this kind.
RECT PlayRect(const PixelRect& box) { return {box.left, box.top, box.Right() - 1, box.Bottom() - 1}; }

class EnhancedMetafile : public Metafile {
 public:
  explicit EnhancedMetafile(MetafileHandle handle) : handle_(std::move(handle)) {
    GetEnhMetaFileHeader(handle_.get(), sizeof header_, &header_);
  }

  TwipSize NaturalSize() const override {
    const RECTL& frame = header_.rclFrame;
    return {Side(static_cast<double>(frame.right) - frame.left), Side(static_cast<double>(frame.bottom) - frame.top)};
  }

  void Play(HDC context, const PixelRect& box) const override {
    const RECT rect = PlayRect(box);
    Playing playing;
    EnumEnhMetaFile(context, handle_.get(), &PlayRecord, &playing, &rect);
  }

 private:
  static float Side(double length) {
    return static_cast<float>(std::clamp(std::abs(length) * kTwipsPerHundredthMillimetre, 1.0, kLongestSide));
  }

  MetafileHandle handle_;
  ENHMETAHEADER header_{};
};

}  // namespace

std::unique_ptr<Metafile> OpenEnhancedMetafile(std::span<const std::uint8_t> bytes) {
  if (LongAt(bytes, 0) != EMR_HEADER || LongAt(bytes, 40) != ENHMETA_SIGNATURE) return nullptr;
  MetafileHandle handle;
  if (IsWhole(bytes)) handle.reset(SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data()));
  if (!handle) throw Failure(FailureNumber::kBadPicture, "Damaged metafile", "LoadPicture");
  return std::make_unique<EnhancedMetafile>(std::move(handle));
}

}  // namespace quorvale
