#include "platform/desktop/metafile/playback.h"

namespace quorvale {

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

RecordTable::RecordTable(std::initializer_list<std::span<const RecordHandler>> groups) {
  for (const auto group : groups) {
    for (const RecordHandler& handler : group) handlers_.emplace(handler.type, handler);
  }
}

const RecordHandler* RecordTable::Find(std::uint32_t type) const {
  const auto found = handlers_.find(type);
  return found == handlers_.end() ? nullptr : &found->second;
}

const RecordTable& RecordsOf(MetafileKind kind) {
  static const RecordTable kWmf{WmfStateRecords(), WmfObjectRecords(), WmfShapeRecords(), WmfTextRecords(),
                                WmfBitmapRecords()};
  static const RecordTable kEmf{EmfStateRecords(),  EmfObjectRecords(), EmfShapeRecords(),  EmfPathRecords(),
                                EmfRegionRecords(), EmfTextRecords(),   EmfBitmapRecords(), EmfBlendRecords()};
  return kind == MetafileKind::kWmf ? kWmf : kEmf;
}

}  // namespace quorvale
