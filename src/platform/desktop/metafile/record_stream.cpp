#include "platform/desktop/metafile/record_stream.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kWmfEnd = 0;
constexpr std::uint32_t kEmfEnd = 14;

}  // namespace

std::optional<MetafileRecord> RecordStream::Next() {
  const bool wmf = kind_ == MetafileKind::kWmf;
  const std::size_t head = wmf ? 6 : 8;
  if (ended_ || left_.size() < head) return std::nullopt;
  ByteReader reader(left_);
  MetafileRecord record;
  record.head = head;
  std::uint64_t size = 0;
  if (wmf) {
    size = std::uint64_t{reader.U32()} * 2;
    record.type = reader.U16();
  } else {
    record.type = reader.U32();
    size = reader.U32();
  }
  if (record.type == (wmf ? kWmfEnd : kEmfEnd)) {
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

}  // namespace quorvale
