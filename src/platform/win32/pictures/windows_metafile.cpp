#include <algorithm>
#include <cstdlib>
#include <type_traits>
#include <utility>

#include "base/failure.h"
#include "platform/win32/pictures/metafile_picture.h"
#include "platform/win32/pictures/picture_bytes.h"

namespace quorvale {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kPlaceableSize = 22;
constexpr std::size_t kHeaderSize = 18;
constexpr double kTwipsPerInch = 1440;
// What the units of a file are that doesn't tell.
constexpr double kUnitsPerInch = 96;

struct DeleteMetafile {
  void operator()(HMETAFILE metafile) const { DeleteMetaFile(metafile); }
};
using MetafileHandle = std::unique_ptr<std::remove_pointer_t<HMETAFILE>, DeleteMetafile>;

// What of the plane that the records draw in is the picture. The sides may be negative.
struct Window {
  int left = 0;
  int top = 0;
  int width = static_cast<int>(kUnitsPerInch);
  int height = static_cast<int>(kUnitsPerInch);
  double units_per_inch = kUnitsPerInch;
};

int ShortAt(Bytes bytes, std::size_t at) { return static_cast<std::int16_t>(WordAt(bytes, at)); }

bool IsHeader(Bytes bytes) {
  const std::uint32_t type = WordAt(bytes, 0);
  const std::uint32_t version = WordAt(bytes, 4);
  return bytes.size() >= kHeaderSize && (type == 1 || type == 2) && WordAt(bytes, 2) == kHeaderSize / 2 &&
         (version == 0x100 || version == 0x300);
}

Window ReadPlaceable(Bytes bytes) {
  Window window;
  window.left = ShortAt(bytes, 6);
  window.top = ShortAt(bytes, 8);
  window.width = ShortAt(bytes, 10) - window.left;
  window.height = ShortAt(bytes, 12) - window.top;
  const std::uint32_t units = WordAt(bytes, 14);
  window.units_per_inch = units == 0 ? kTwipsPerInch : units;
  return window;
}

// Goes over the records, and takes origin and size from the first that set them. False unless each lies
// within the file and the last one is the end mark.
bool ReadRecords(Bytes records, Window& window) {
  bool has_origin = false;
  bool has_size = false;
  for (std::size_t at = 0; at + 6 <= records.size();) {
    const std::size_t words = LongAt(records, at);
    const std::uint32_t function = WordAt(records, at + 4);
    if (words < 3 || words > (records.size() - at) / 2) return false;
    if (function == 0) return true;
    if (function == META_SETWINDOWORG && !std::exchange(has_origin, true)) {
      window.top = ShortAt(records, at + 6);
      window.left = ShortAt(records, at + 8);
    } else if (function == META_SETWINDOWEXT && !std::exchange(has_size, true)) {
      window.height = ShortAt(records, at + 6);
      window.width = ShortAt(records, at + 8);
    }
    at += words * 2;
  }
  return false;
}

int CALLBACK PlayRecord(HDC context, HANDLETABLE* objects, METARECORD* record, int count, LPARAM data) {
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
  WindowsMetafile(MetafileHandle handle, const Window& window) : handle_(std::move(handle)), window_(window) {}

  TwipSize NaturalSize() const override { return {Side(window_.width), Side(window_.height)}; }

  // The records may set a window of their own, never a viewport.
  void Play(HDC context, const PixelRect& box) const override {
    SetMapMode(context, MM_ANISOTROPIC);
    SetViewportOrgEx(context, box.left, box.top, nullptr);
    SetViewportExtEx(context, box.width, box.height, nullptr);
    SetWindowOrgEx(context, window_.left, window_.top, nullptr);
    SetWindowExtEx(context, window_.width, window_.height, nullptr);
    Playing playing;
    EnumMetaFile(context, handle_.get(), &PlayRecord, reinterpret_cast<LPARAM>(&playing));
  }

 private:
  float Side(int length) const {
    return static_cast<float>(std::max(1.0, std::abs(length) * kTwipsPerInch / window_.units_per_inch));
  }

  MetafileHandle handle_;
  Window window_;
};

}  // namespace

std::unique_ptr<Metafile> OpenWindowsMetafile(Bytes bytes) {
  const bool is_placeable = LongAt(bytes, 0) == kPlaceableKey && bytes.size() > kPlaceableSize;
  const Bytes plain = is_placeable ? bytes.subspan(kPlaceableSize) : bytes;
  if (!IsHeader(plain)) return nullptr;
  Window window;
  MetafileHandle handle;
  if (ReadRecords(plain.subspan(kHeaderSize), window)) {
    handle.reset(SetMetaFileBitsEx(static_cast<UINT>(plain.size()), plain.data()));
  }
  if (!handle) throw Failure(FailureNumber::kBadPicture, "Damaged metafile", "LoadPicture");
  if (is_placeable) window = ReadPlaceable(bytes);
  if (window.width == 0 || window.height == 0) window = {};
  return std::make_unique<WindowsMetafile>(std::move(handle), window);
}

}  // namespace quorvale
