#include "platform/desktop/pictures/iso_boxes.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <vector>

namespace quorvale {
namespace {

// A picture of JPEG XL may be spread over many.
constexpr int kMostBoxes = 10'000;
// Grids of tiles have an item a tile.
constexpr std::size_t kMostItems = 65'535;

// Boxes of HEIF (ISO/IEC 23008-12) begin with a version of 8 bits and flags of 24.
constexpr std::size_t kVersionAndFlags = 4;

// A picture laid over others, of which each is a grid of tiles, has two. Its alpha may be a level more.
constexpr int kMostLevels = 4;
constexpr std::size_t kMostReferences = 1'000'000;

// The decoding of the one item needs the other.
struct Reference {
  std::uint32_t user = 0;
  std::uint32_t used = 0;
};

ByteReader BigEndian(ByteSpan bytes) { return ByteReader(bytes, 0, std::endian::big); }

ByteSpan BehindVersion(ByteSpan box) { return box.subspan(std::min(kVersionAndFlags, box.size())); }

ByteSpan MetaBoxes(ByteSpan file) { return BehindVersion(FindBox(file, BoxType("meta"))); }

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

void AddReferences(ByteSpan box, std::vector<Reference>& references) {
  const bool has_short_items = BigEndian(box).U8() == 0;
  ByteSpan lists = BehindVersion(box);
  while (const auto list = CutBox(lists)) {
    const bool is_made_of = list->type == BoxType("dimg");
    const bool belongs_to = list->type == BoxType("auxl");  // alpha
    if (!is_made_of && !belongs_to) continue;
    ByteReader reader = BigEndian(list->content);
    const auto item = [&] { return has_short_items ? reader.U16() : reader.U32(); };
    const std::uint32_t from = item();
    for (std::size_t left = reader.U16(); left > 0 && reader.Left() > 0; --left) {
      if (references.size() > kMostReferences) return;
      const std::uint32_t to = item();
      references.push_back(is_made_of ? Reference{from, to} : Reference{to, from});
    }
  }
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

bool NestsTooDeep(ByteSpan file) {
  std::vector<Reference> references;
  // Of several boxes of a type the library may take another one than the first.
  while (const auto meta = CutBox(file)) {
    if (meta->type != BoxType("meta")) continue;
    ByteSpan boxes = BehindVersion(meta->content);
    while (const auto box = CutBox(boxes)) {
      if (box->type == BoxType("iref")) AddReferences(box->content, references);
    }
  }
  if (references.size() > kMostReferences) return true;
  // Each pass leaves the users of users, so those of a circle always stay.
  for (int level = 0; level < kMostLevels && !references.empty(); ++level) {
    std::vector<std::uint32_t> users;
    users.reserve(references.size());
    for (const Reference& reference : references) users.push_back(reference.user);
    std::ranges::sort(users);
    std::erase_if(references, [&](const Reference& each) { return !std::ranges::binary_search(users, each.used); });
  }
  return !references.empty();
}

}  // namespace quorvale
