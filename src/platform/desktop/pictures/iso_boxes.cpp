#include "platform/desktop/pictures/iso_boxes.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace quorvale {
namespace {

// A picture of JPEG XL may be spread over many.
constexpr int kMostBoxes = 10'000;
// Grids of tiles have an item a tile.
constexpr std::size_t kMostItems = 65'535;

// Boxes of HEIF (ISO/IEC 23008-12) begin with a version of 8 bits and flags of 24.
constexpr std::size_t kVersionAndFlags = 4;

ByteReader BigEndian(ByteSpan bytes) { return ByteReader(bytes, 0, std::endian::big); }

ByteSpan MetaBoxes(ByteSpan file) {
  const ByteSpan meta = FindBox(file, BoxType("meta"));
  return meta.subspan(std::min(kVersionAndFlags, meta.size()));
}

std::uint32_t PrimaryItem(ByteSpan box) {
  ByteReader reader = BigEndian(box);
  const bool is_short = reader.U8() == 0;
  reader.Seek(kVersionAndFlags);
  return is_short ? reader.U16() : reader.U32();
}

// Counted from 1. 0 stands for no property.
IsoBox BoxAt(ByteSpan boxes, unsigned number) {
  if (number == 0) return {};
  for (unsigned i = 1; i < number; ++i) CutBox(boxes);
  return CutBox(boxes).value_or(IsoBox{});
}

// Whether a property says of a picture that it is in greys. None if it says nothing of that.
std::optional<bool> SaysGrey(const IsoBox& property) {
  if (property.type == BoxType("hvcC")) {
    constexpr std::size_t kChromaFormat = 16;
    return property.content.size() > kChromaFormat && (property.content[kChromaFormat] & 3U) == 0;
  }
  if (property.type == BoxType("av1C")) {
    constexpr std::size_t kFlags = 2;
    constexpr unsigned kMonochrome = 0x10;
    return property.content.size() > kFlags && (property.content[kFlags] & kMonochrome) != 0;
  }
  return std::nullopt;
}

// Adds what one property does to the picture. False if it is neither nothing nor a rotation, or the second rotation.
bool AddRotation(const IsoBox& property, int& quarters) {
  if (property.type == BoxType("clap") || property.type == BoxType("imir")) return false;
  if (property.type != BoxType("irot")) return true;
  if (quarters != 0 || property.content.empty()) return false;
  quarters = property.content[0] % 4;
  return true;
}

// To the left.
Orientation RotatedBy(int quarters) {
  constexpr int kExifNumbers[] = {1, 8, 3, 6};
  return Orientation::FromExif(kExifNumbers[quarters]);
}

}  // namespace

std::optional<IsoBox> CutBox(ByteSpan& boxes) {
  constexpr std::size_t kHead = 8;
  ByteReader reader = BigEndian(boxes);
  if (reader.Left() < kHead) return std::nullopt;
  std::uint64_t size = reader.U32();
  const std::uint32_t type = reader.U32();
  // 1: a longer number follows. A box of less than its head, such as 0, goes on to the end.
  if (size == 1) {
    size = std::uint64_t{reader.U32()} << 32U;
    size = (size | reader.U32()) - kHead;
  }
  const std::uint64_t left = reader.Left();
  const auto length = static_cast<std::size_t>(size < kHead ? left : std::min(size - kHead, left));
  const ByteSpan content = reader.Rest().first(length);
  boxes = reader.Rest().subspan(length);
  return IsoBox{type, content};
}

ByteSpan FindBox(ByteSpan boxes, std::uint32_t type) {
  for (int i = 0; i < kMostBoxes; ++i) {
    const auto box = CutBox(boxes);
    if (!box) break;
    if (box->type == type) return box->content;
  }
  return {};
}

std::optional<Orientation> HeifRotation(ByteSpan file) {
  const ByteSpan meta = MetaBoxes(file);
  const std::uint32_t primary = PrimaryItem(FindBox(meta, BoxType("pitm")));
  const ByteSpan properties = FindBox(meta, BoxType("iprp"));
  const ByteSpan boxes = FindBox(properties, BoxType("ipco"));

  ByteReader reader = BigEndian(FindBox(properties, BoxType("ipma")));
  const bool has_short_items = reader.U8() == 0;
  const bool has_long_numbers = (reader.U24() & 1U) != 0;
  for (std::size_t items = std::min<std::size_t>(reader.U32(), kMostItems); items > 0; --items) {
    const std::uint32_t item = has_short_items ? reader.U16() : reader.U32();
    int quarters = 0;
    for (int count = reader.U8(); count > 0; --count) {
      // The highest bit says whether a reader has to know the property.
      const unsigned number = has_long_numbers ? reader.U16() & 0x7FFFU : reader.U8() & 0x7FU;
      if (item == primary && !AddRotation(BoxAt(boxes, number), quarters)) return std::nullopt;
    }
    if (item == primary) return RotatedBy(quarters);
  }
  return std::nullopt;
}

bool IsGreyHeif(ByteSpan file) {
  ByteSpan properties = FindBox(FindBox(MetaBoxes(file), BoxType("iprp")), BoxType("ipco"));
  bool is_grey = false;
  for (int i = 0; i < kMostBoxes; ++i) {
    const auto property = CutBox(properties);
    if (!property) break;
    const auto grey = SaysGrey(*property);
    if (grey == false) return false;
    is_grey = is_grey || grey.has_value();
  }
  return is_grey;
}

}  // namespace quorvale
