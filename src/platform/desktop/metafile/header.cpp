#include "platform/desktop/metafile/header.h"

#include <algorithm>
#include <cstdlib>

#include "platform/desktop/metafile/record_values.h"
#include "platform/pictures/metafile_head.h"
#include "platform/pictures/rendered_picture.h"

namespace quorvale::metafile {
namespace {

// EMR_HEADER.
constexpr std::size_t kEmfHeaderSize = 88;
constexpr double kPixelsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;
// Twips. Larger than every screen, and small enough for all that is computed from it.
constexpr double kLongestSide = 3e6;

[[noreturn]] void Fail() { FailLoad("Damaged metafile"); }

float Side(double twips) { return static_cast<float>(std::clamp(twips, 1.0, kLongestSide)); }

Header ReadWmf(ByteSpan bytes) {
  Header header;
  const bool is_placeable = IsPlaceableHead(bytes);
  header.first_record = is_placeable ? kPlaceableHeadSize : 0;
  if (bytes.size() < header.first_record || !IsWmfHead(bytes.subspan(header.first_record))) Fail();
  header.first_record += kWmfHeadSize;
  SetWmfSize(header, kPixelsPerInch, kPixelsPerInch);
  if (!is_placeable) return header;
  const PlaceableHead head = ReadPlaceableHead(bytes);
  if (head.left == head.right || head.top == head.bottom) return header;
  const int width = head.right - head.left;
  const int height = head.bottom - head.top;
  header.window = QRectF(head.left, head.top, width, height);
  const double pixels_per_unit = kPixelsPerInch / head.units_per_inch;
  SetWmfSize(header, std::abs(width) * pixels_per_unit, std::abs(height) * pixels_per_unit);
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

bool HasHeader(ByteSpan bytes) { return IsPlaceableHead(bytes) || IsEmfHead(bytes) || IsWmfHead(bytes); }

Header ReadHeader(ByteSpan bytes) { return IsEmfHead(bytes) ? ReadEmf(bytes) : ReadWmf(bytes); }

void SetWmfSize(Header& header, double width, double height) {
  const double twips_per_pixel = kTwipsPerInch / kPixelsPerInch;
  header.natural = {Side(width * twips_per_pixel), Side(height * twips_per_pixel)};
  header.frame = QRectF(0, 0, header.natural.width / twips_per_pixel, header.natural.height / twips_per_pixel);
  header.device_pixels = header.frame.size();
  header.device_millimetres = header.device_pixels / kPixelsPerInch * kMillimetresPerInch;
}

}  // namespace quorvale::metafile
