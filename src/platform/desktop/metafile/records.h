#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <unordered_map>

#include "base/byte_reader.h"
#include "platform/desktop/metafile/canvas.h"
#include "platform/desktop/metafile/objects.h"
#include "platform/desktop/metafile/record_types.h"

namespace quorvale::metafile {

// `bytes` begin with the record's size and type, because offsets in a record count from there.
struct Record {
  std::uint32_t type = 0;
  ByteSpan bytes;
  // Bytes of size and type together; the parameters follow.
  std::size_t head = 0;
};

// The records of a file in turn, up to META_EOF or EMR_EOF or to where the file is damaged.
class RecordStream {
 public:
  RecordStream(Format format, ByteSpan records) : format_(format), left_(records) {}

  std::optional<Record> Next();
  // Whether the end record has been reached.
  bool Ended() const { return ended_; }

 private:
  Format format_;
  ByteSpan left_;
  bool ended_ = false;
};

// What the handlers of records act on.
struct Playback {
  Canvas& canvas;
  ObjectTable& objects;

  DeviceState& State() const { return canvas.State(); }
  Mapping& Map() const { return canvas.State().mapping; }
  // Selects a pen, a brush or a font. Other objects have records of their own and are ignored.
  void Select(const GdiObject& object) const;
  // Does nothing unless it is a palette.
  void SelectPalette(const GdiObject& object) const;
};

// Plays one record. The reader covers the record and stands at its parameters.
using PlayRecord = void (*)(const Playback& playback, ByteReader& reader);

// Whether the record itself makes something visible.
enum RecordEffect : std::uint8_t { kPrepares, kDraws };

struct RecordHandler {
  std::uint32_t type = 0;
  RecordEffect effect = kPrepares;
  PlayRecord play = nullptr;
};

class RecordTable {
 public:
  RecordTable(std::initializer_list<std::span<const RecordHandler>> groups);
  // Null if the record has no handler.
  const RecordHandler* Find(std::uint32_t type) const;

 private:
  std::unordered_map<std::uint32_t, RecordHandler> handlers_;
};

const RecordTable& RecordsOf(Format format);

// The handlers, a group for each file that holds them.
std::span<const RecordHandler> WmfRecords();
std::span<const RecordHandler> WmfObjectRecords();
std::span<const RecordHandler> EmfRecords();
std::span<const RecordHandler> EmfShapeRecords();
std::span<const RecordHandler> EmfBitmapRecords();

}  // namespace quorvale::metafile
