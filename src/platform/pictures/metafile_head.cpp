#include "platform/pictures/metafile_head.h"

#include <cstdint>

namespace quorvale {
namespace {

constexpr std::uint32_t kEmfHeaderRecord = 1;
constexpr std::uint32_t kEmfSignature = 0x464D4520;
constexpr std::size_t kEmfSignaturePlace = 40;
constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;

}  // namespace

bool IsEmfHead(ByteSpan bytes) {
  return ByteReader(bytes).U32() == kEmfHeaderRecord && ByteReader(bytes, kEmfSignaturePlace).U32() == kEmfSignature;
}

bool IsWmfHead(ByteSpan bytes) {
  ByteReader reader(bytes);
  const unsigned type = reader.U16();
  const unsigned words = reader.U16();
  const unsigned version = reader.U16();
  return bytes.size() >= kWmfHeadSize && (type == 1 || type == 2) && words == kWmfHeadSize / 2 &&
         (version == 0x100 || version == 0x300);
}

bool IsPlaceableHead(ByteSpan bytes) { return ByteReader(bytes).U32() == kPlaceableKey; }

PlaceableHead ReadPlaceableHead(ByteSpan bytes) {
  ByteReader reader(bytes, 6);
  PlaceableHead head;
  for (int* const edge : {&head.left, &head.top, &head.right, &head.bottom}) *edge = reader.I16();
  const unsigned units = reader.U16();
  if (units != 0) head.units_per_inch = units;
  return head;
}

}  // namespace quorvale
