#include "platform/desktop/metafile/records.h"

namespace quorvale::metafile {

std::optional<Record> RecordStream::Next() {
  const bool wmf = format_ == Format::kWmf;
  const std::size_t head = wmf ? 6 : 8;
  if (ended_ || left_.size() < head) return std::nullopt;
  ByteReader reader(left_);
  Record record;
  record.head = head;
  std::uint64_t size = 0;
  if (wmf) {
    // In 16-bit words.
    size = std::uint64_t{reader.U32()} * 2;
    record.type = reader.U16();
  } else {
    record.type = reader.U32();
    size = reader.U32();
  }
  if (record.type == (wmf ? std::uint32_t{META_EOF} : std::uint32_t{EMR_EOF})) {
    ended_ = true;
    return std::nullopt;
  }
  if (size < head || size > left_.size()) {
    left_ = {};
    return std::nullopt;
  }
  record.bytes = left_.first(static_cast<std::size_t>(size));
  left_ = left_.subspan(static_cast<std::size_t>(size));
  return record;
}

void Playback::Select(const GdiObject& object) const {
  DeviceState& state = canvas.State();
  if (const auto* pen = std::get_if<Pen>(&object)) {
    state.pen = *pen;
  } else if (const auto* brush = std::get_if<Brush>(&object)) {
    state.brush = *brush;
  } else if (const auto* font = std::get_if<Font>(&object)) {
    state.font = *font;
  }
}

void Playback::SelectPalette(const GdiObject& object) const {
  if (const auto* palette = std::get_if<std::shared_ptr<const Palette>>(&object)) canvas.State().palette = *palette;
}

RecordTable::RecordTable(std::initializer_list<std::span<const RecordHandler>> groups) {
  for (const auto group : groups) {
    for (const RecordHandler& handler : group) handlers_.emplace(handler.type, handler);
  }
}

const RecordHandler* RecordTable::Find(std::uint32_t type) const {
  const auto found = handlers_.find(type);
  return found == handlers_.end() ? nullptr : &found->second;
}

const RecordTable& RecordsOf(Format format) {
  static const RecordTable kWmf{WmfRecords(), WmfObjectRecords()};
  static const RecordTable kEmf{EmfRecords(), EmfShapeRecords(), EmfBitmapRecords()};
  return format == Format::kWmf ? kWmf : kEmf;
}

}  // namespace quorvale::metafile
