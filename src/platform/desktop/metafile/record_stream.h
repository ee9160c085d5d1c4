#pragma once

#include <optional>

#include "platform/desktop/metafile/byte_reader.h"

namespace quorvale {

enum class MetafileKind { kWmf, kEmf };

// `bytes` begin with the record's own size and number, since offsets in it count from there.
struct MetafileRecord {
  std::uint32_t type = 0;
  ByteSpan bytes;
  // The size and the number.
  std::size_t head = 0;
};

// The records of a file one by one, up to the end mark or to where the file is damaged.
class RecordStream {
 public:
  RecordStream(MetafileKind kind, ByteSpan records) : kind_(kind), left_(records) {}

  std::optional<MetafileRecord> Next();
  // Whether the end mark was there.
  bool Ended() const { return ended_; }

 private:
  MetafileKind kind_;
  ByteSpan left_;
  bool ended_ = false;
};

}  // namespace quorvale
