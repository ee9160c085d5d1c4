#include "platform/desktop/metafile/object_table.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvale {
namespace {

// Files number their objects with 16 bits.
constexpr std::size_t kMostObjects = 0x10000;
// Few bytes of a file can make a large pattern.
constexpr qsizetype kMostPatternBytes = qsizetype{128} << 20U;

qsizetype PatternBytes(const GdiObject& object) {
  const auto* brush = std::get_if<Brush>(&object);
  return brush == nullptr ? 0 : brush->pattern.sizeInBytes();
}

Font StockFont() {
  Font font;
  font.height = 16;
  return font;
}

}  // namespace

GdiObject StockObject(unsigned number) {
  constexpr std::array<ColourReference, 5> kGreys{0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0};
  if (number < kGreys.size()) return Brush{.colour = kGreys[number]};
  switch (number) {
    case 5:
      return Brush{.style = Brush::Style::kNone};
    case 6:
      return Pen{.brush = {.colour = 0xFFFFFF}};
    case 7:
      return Pen{};
    case 8:
      return Pen{.style = Pen::kNull};
    case 18:
      return Brush{};
    case 19:
      return Pen{};
    default:
      return number >= 10 && number <= 17 && number != 15 ? GdiObject(StockFont()) : GdiObject();
  }
}

void ObjectTable::Add(GdiObject object) {
  const auto free = std::find_if(slots_.begin(), slots_.end(), [](const Slot& slot) { return !slot.used; });
  Set(static_cast<std::uint32_t>(free - slots_.begin()), std::move(object));
}

void ObjectTable::Set(std::uint32_t place, GdiObject object) {
  if (place >= kMostObjects) return;
  if (place >= slots_.size()) slots_.resize(place + 1);
  if (qsizetype bytes = PatternBytes(object); bytes > 0) {
    for (const Slot& slot : slots_) bytes += PatternBytes(slot.object);
    if (bytes > kMostPatternBytes) object = Brush{.style = Brush::Style::kNone};
  }
  slots_[place] = {true, std::move(object)};
}

void ObjectTable::Remove(std::uint32_t place) {
  if (place < slots_.size()) slots_[place] = {};
}

const GdiObject& ObjectTable::Get(std::uint32_t place) const {
  static const GdiObject kNothing;
  return place < slots_.size() ? slots_[place].object : kNothing;
}

}  // namespace quorvale
