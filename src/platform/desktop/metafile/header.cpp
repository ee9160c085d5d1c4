#include "platform/desktop/metafile/header.h"

#include <algorithm>

#include "platform/desktop/metafile/record_values.h"
#include "platform/pictures/rendered_picture.h"

namespace quorvale::metafile {
namespace {

// META_PLACEABLE, META_HEADER.
constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kPlaceableSize = 22;
constexpr std::size_t kWmfHeaderSize = 18;
// EMR_HEADER.
constexpr std::uint32_t kEmfSignature = 0x464D4520;
constexpr std::size_t kEmfHeaderSize = 88;
constexpr double kTwipsPerInch = 1440;
constexpr double kPixelsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;
// Twips. Larger than every screen, and small enough for all that is computed from it.
constexpr double kLongestSide = 3e6;

bool IsWmfHeader(ByteReader reader) {
  const unsigned type = reader.U16();
  const unsigned words = reader.U16();
  const unsigned version = reader.U16();
  return (type == 1 || type == 2) && words == kWmfHeaderSize / 2 && (version == 0x100 || version == 0x300) &&
         reader.Size() >= kWmfHeaderSize;
}

bool IsPlaceable(ByteSpan bytes) { return ByteReader(bytes).U32() == kPlaceableKey; }
bool IsEmf(ByteSpan bytes) {
  return ByteReader(bytes).U32() == EMR_HEADER && ByteReader(bytes, 40).U32() == kEmfSignature;
}

[[noreturn]] void Fail() { FailLoad("Damaged metafile"); }

float Side(double twips) { return static_cast<float>(std::clamp(twips, 1.0, kLongestSide)); }

Header ReadWmf(ByteSpan bytes) {
  Header header;
  const bool placeable = IsPlaceable(bytes);
  header.first_record = placeable ? kPlaceableSize : 0;
  if (bytes.size() < header.first_record || !IsWmfHeader(ByteReader(bytes.subspan(header.first_record)))) Fail();
  header.first_record += kWmfHeaderSize;
  SetWmfSize(header, kPixelsPerInch, kPixelsPerInch);
  if (!placeable) return header;
  ByteReader reader(bytes, 6);
  const double left = reader.I16();
  const double top = reader.I16();
  const double right = reader.I16();
  const double bottom = reader.I16();
  const double units_per_inch = reader.U16();
  if (left == right || top == bottom) return header;
  header.window = QRectF(left, top, right - left, bottom - top);
  const double pixels_per_unit = kPixelsPerInch / (units_per_inch == 0 ? kTwipsPerInch : units_per_inch);
  SetWmfSize(header, std::abs(right - left) * pixels_per_unit, std::abs(bottom - top) * pixels_per_unit);
  return header;
}

Header ReadEmf(ByteSpan bytes) {
  if (bytes.size() < kEmfHeaderSize) Fail();
  Header header;
  header.format = Format::kEmf;
  ByteReader reader(bytes, 4);
  // The header is the first record.
  const std::size_t size = reader.U32();
  if (size < kEmfHeaderSize || size > bytes.size()) Fail();
  header.first_record = size;
  const QRectF bounds = EmfRect(reader);
  const QRectF frame = EmfRect(reader);
  reader.Seek(72);
  header.device_pixels = EmfSize(reader);
  header.device_millimetres = EmfSize(reader);
  if (header.device_pixels.isEmpty() || header.device_millimetres.isEmpty()) Fail();
  const double across = header.device_pixels.width() / header.device_millimetres.width();
  const double down = header.device_pixels.height() / header.device_millimetres.height();
  if (!frame.isEmpty()) {
    // The file has it in hundredths of a millimetre.
    header.frame = QRectF(frame.x() * across / 100, frame.y() * down / 100, frame.width() * across / 100,
                          frame.height() * down / 100);
  } else if (bounds.width() >= 0 && bounds.height() >= 0) {
    header.frame = bounds.adjusted(0, 0, 1, 1);
  } else {
    Fail();
  }
  const double twips_per_millimetre = kTwipsPerInch / kMillimetresPerInch;
  header.natural = {Side(header.frame.width() / across * twips_per_millimetre),
                    Side(header.frame.height() / down * twips_per_millimetre)};
  return header;
}

}  // namespace

bool HasHeader(ByteSpan bytes) { return IsPlaceable(bytes) || IsEmf(bytes) || IsWmfHeader(ByteReader(bytes)); }

Header ReadHeader(ByteSpan bytes) { return IsEmf(bytes) ? ReadEmf(bytes) : ReadWmf(bytes); }

void SetWmfSize(Header& header, double width, double height) {
  const double twips_per_pixel = kTwipsPerInch / kPixelsPerInch;
  header.natural = {Side(width * twips_per_pixel), Side(height * twips_per_pixel)};
  header.frame = QRectF(0, 0, header.natural.width / twips_per_pixel, header.natural.height / twips_per_pixel);
  header.device_pixels = header.frame.size();
  header.device_millimetres = header.device_pixels / kPixelsPerInch * kMillimetresPerInch;
}

}  // namespace quorvale::metafile
