#include "platform/pictures/orientation.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/byte_reader.h"
#include "platform/pictures/jpeg_segments.h"

namespace quorvale {
namespace {

// By the Exif number; entry 0 is unused.
constexpr std::array<Orientation, 9> kOrientations{{{},
                                                    {},
                                                    {false, true, false},
                                                    {false, true, true},
                                                    {false, false, true},
                                                    {true, false, false},
                                                    {true, true, false},
                                                    {true, true, true},
                                                    {true, false, true}}};

constexpr std::array<std::uint8_t, 6> kExifSignature{'E', 'x', 'i', 'f', 0, 0};

// Cameras write Exif first.
constexpr int kMostSegments = 64;

// A chunk of a PNG file: length, type, data, checksum.
constexpr std::size_t kPngSignature = 8;
constexpr std::size_t kChunkHead = 8;
constexpr std::size_t kChunkFrame = 12;
// Exif with a large thumbnail fits.
constexpr std::size_t kLongestExif = std::size_t{1} << 20U;
// More than the largest file has in chunks as small as encoders write them, 8 KiB.
constexpr int kMostChunks = 100'000;

constexpr std::uint16_t kOrientationTag = 0x0112;
// The place of another directory, with what belongs to photos only.
constexpr std::uint16_t kExifDirectoryTag = 0x8769;
constexpr std::uint16_t kDateTimeOriginalTag = 0x9003;
constexpr std::uint32_t kAscii = 2;
constexpr std::string_view kDayShape = "dddd:dd:dd";
// Types of whole numbers. The standard asks for kShort, and for kLong for an offset.
constexpr std::uint32_t kShort = 3;
constexpr std::uint32_t kLong = 4;
constexpr std::uint32_t kSignedShort = 8;
constexpr std::uint32_t kSignedLong = 9;

// A TIFF block of tagged values. Its first two bytes, "II" or "MM", are the byte order.
class TagBlock {
 public:
  explicit TagBlock(ByteSpan bytes)
      : bytes_(bytes), order_(!bytes.empty() && bytes[0] == 'M' ? std::endian::big : std::endian::little) {}

  std::optional<int> OrientationNumber() const {
    std::optional<int> orientation;
    ForEach(FirstDirectory(), kOrientationTag, [&](std::size_t entry) {
      const auto value = WholeNumber(entry);
      if (value && *value >= 1 && *value <= 8) orientation = static_cast<int>(*value);
      return orientation.has_value();
    });
    return orientation;
  }

  std::string DateTaken() const {
    std::string date;
    ForEach(FirstDirectory(), kExifDirectoryTag, [&](std::size_t pointer) {
      ForEach(WholeNumber(pointer), kDateTimeOriginalTag, [&](std::size_t entry) {
        date = Date(entry);
        return !date.empty();
      });
      return !date.empty();
    });
    return date;
  }

 private:
  std::optional<std::uint32_t> FirstDirectory() const { return Number(4, 4); }

  // Passes the places of a directory's entries with that tag to `visit`, until it returns true.
  template <typename Visit>
  void ForEach(const std::optional<std::uint32_t>& directory, std::uint16_t tag, const Visit& visit) const {
    if (!directory) return;
    const auto entries = Number(*directory, 2);
    for (std::uint32_t i = 0; entries && i < *entries; ++i) {
      const std::size_t entry = std::size_t{*directory} + 2 + std::size_t{12} * i;
      const auto found = Number(entry, 2);
      if (!found) break;
      if (*found == tag && visit(entry)) break;
    }
  }

  // The day that the text of an entry begins with.
  std::string Date(std::size_t entry) const {
    const auto place = Number(entry + 8, 4);
    if (Number(entry + 2, 2) != kAscii || Number(entry + 4, 4).value_or(0) < kDayShape.size() || !place) return {};
    if (*place > bytes_.size() || bytes_.size() - *place < kDayShape.size()) return {};
    const ByteSpan text = bytes_.subspan(*place, kDayShape.size());
    return DayOfExif(std::string(text.begin(), text.end()));
  }

  // The first value of an entry.
  std::optional<std::uint32_t> WholeNumber(std::size_t entry) const {
    switch (Number(entry + 2, 2).value_or(0)) {
      case kShort:
      case kSignedShort:
        return Number(entry + 8, 2);
      case kLong:
      case kSignedLong:
        return Number(entry + 8, 4);
      default:
        return std::nullopt;
    }
  }

  // Of 2 or 4 bytes. None beyond the end.
  std::optional<std::uint32_t> Number(std::size_t offset, std::size_t size) const {
    ByteReader reader(bytes_, offset, order_);
    if (reader.Left() < size) return std::nullopt;
    return size == 2 ? reader.U16() : reader.U32();
  }

  ByteSpan bytes_;
  std::endian order_;
};

CameraTags TagsIn(const TagBlock& block) {
  return {.orientation = Orientation::FromExif(block.OrientationNumber().value_or(1)), .date_taken = block.DateTaken()};
}

// Reads an APP1 segment of a JPEG file, without marker and length. None if the segment is not Exif.
std::optional<CameraTags> TagsInSegment(ByteSpan segment) {
  if (segment.size() <= kExifSignature.size()) return std::nullopt;
  if (!std::equal(kExifSignature.begin(), kExifSignature.end(), segment.begin())) return std::nullopt;
  return TagsIn(TagBlock(segment.subspan(kExifSignature.size())));
}

}  // namespace

std::string DayOfExif(std::string_view text) {
  if (text.size() < kDayShape.size()) return {};
  std::string date;
  for (std::size_t i = 0; i < kDayShape.size(); ++i) {
    const bool is_digit = text[i] >= '0' && text[i] <= '9';
    if (kDayShape[i] == 'd' ? !is_digit : text[i] != ':') return {};
    date += is_digit ? text[i] : '-';
  }
  const std::string_view month = std::string_view(date).substr(5, 2);
  const std::string_view day = std::string_view(date).substr(8);
  const bool is_day = !date.starts_with("0000") && month >= "01" && month <= "12" && day >= "01" && day <= "31";
  return is_day ? date : std::string();
}

Orientation Orientation::FromExif(int number) {
  return number >= 1 && number <= 8 ? kOrientations[static_cast<std::size_t>(number)] : Orientation{};
}

PixelRect Orientation::ToStored(const PixelRect& part, PixelSize shown) const {
  PixelRect stored = part;
  if (mirrored) stored.left = shown.width - part.Right();
  if (flipped) stored.top = shown.height - part.Bottom();
  if (transposed) {
    std::swap(stored.left, stored.top);
    std::swap(stored.width, stored.height);
  }
  return stored;
}

void Orientation::PlaceRow(const Pixel* row, int y, const PixelView& shown_part) const {
  const int across = transposed ? y : 0;
  const int down = transposed ? 0 : y;
  const int x = mirrored ? shown_part.width - 1 - across : across;
  Pixel* to = shown_part.Row(flipped ? shown_part.height - 1 - down : down) + x;
  const int count = transposed ? shown_part.height : shown_part.width;
  const std::ptrdiff_t step = transposed ? (flipped ? -shown_part.stride : shown_part.stride) : (mirrored ? -1 : 1);
  if (step == 1) {
    std::copy_n(row, count, to);
    return;
  }
  for (int i = 0; i < count; ++i) to[i * step] = row[i];
}

// Some programs put the signature in front where no format asks for it.
CameraTags ExifCameraTags(std::span<const std::uint8_t> exif) {
  return TagsInSegment(exif).value_or(TagsIn(TagBlock(exif)));
}

CameraTags BoxedCameraTags(std::span<const std::uint8_t> block) {
  ByteReader reader(block, 0, std::endian::big);
  reader.Skip(reader.U32());
  return ExifCameraTags(reader.Rest());
}

CameraTags JpegCameraTags(ByteSource& bytes) {
  JpegSegments segments(bytes, kMostSegments);
  while (const auto segment = segments.Next()) {
    if (segment->kind != kJpegApp1) continue;
    std::vector<std::uint8_t> data(segment->size);
    bytes.Copy(segment->offset, data);
    if (auto tags = TagsInSegment(data)) return std::move(*tags);
  }
  return {};
}

CameraTags PngCameraTags(ByteSource& bytes) {
  std::size_t offset = kPngSignature;
  for (int chunk = 0; chunk < kMostChunks; ++chunk) {
    std::array<std::uint8_t, kChunkHead> head{};
    if (!bytes.Copy(offset, head) || std::memcmp(&head[4], "IEND", 4) == 0) break;
    const std::size_t length = ByteReader(head, 0, std::endian::big).U32();
    if (std::memcmp(&head[4], "eXIf", 4) == 0) {
      std::vector<std::uint8_t> data(std::min(length, kLongestExif));
      bytes.Copy(offset + kChunkHead, data);
      return ExifCameraTags(data);
    }
    offset += kChunkFrame + length;
  }
  return {};
}

}  // namespace quorvale
