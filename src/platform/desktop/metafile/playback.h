#pragma once

#include <span>
#include <unordered_map>

#include "platform/desktop/metafile/metafile_canvas.h"
#include "platform/desktop/metafile/object_table.h"
#include "platform/desktop/metafile/record_stream.h"

namespace quorvale {

// What a record works with.
struct Playback {
  MetafileCanvas& canvas;
  ObjectTable& objects;

  // Objects of a kind that is not selected, as regions are, are left alone.
  void Select(const GdiObject& object) const;
};

// Plays one kind of record. The reader stands behind the record's head.
using PlayRecord = void (*)(const Playback& playback, ByteReader& reader);

// Whether something can be seen of a record.
enum RecordEffect : std::uint8_t { kPrepares, kDraws };

struct RecordHandler {
  std::uint32_t type = 0;
  RecordEffect effect = kPrepares;
  PlayRecord play = nullptr;
};

class RecordTable {
 public:
  RecordTable(std::initializer_list<std::span<const RecordHandler>> groups);
  // Null for a record that is not known.
  const RecordHandler* Find(std::uint32_t type) const;

 private:
  std::unordered_map<std::uint32_t, RecordHandler> handlers_;
};

const RecordTable& RecordsOf(MetafileKind kind);

// The groups of records.
std::span<const RecordHandler> WmfStateRecords();
std::span<const RecordHandler> WmfObjectRecords();
std::span<const RecordHandler> WmfShapeRecords();
std::span<const RecordHandler> WmfTextRecords();
std::span<const RecordHandler> WmfBitmapRecords();
std::span<const RecordHandler> EmfStateRecords();
std::span<const RecordHandler> EmfObjectRecords();
std::span<const RecordHandler> EmfShapeRecords();
std::span<const RecordHandler> EmfPathRecords();
std::span<const RecordHandler> EmfRegionRecords();
std::span<const RecordHandler> EmfTextRecords();
std::span<const RecordHandler> EmfBitmapRecords();
std::span<const RecordHandler> EmfBlendRecords();

}  // namespace quorvale
