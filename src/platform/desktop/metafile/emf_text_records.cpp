// Text of EMF files.

#include <algorithm>

#include "platform/desktop/metafile/emf_reading.h"
#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/text_decoding.h"

namespace quorvale {
namespace {

enum Option : unsigned {
  kOpaque = 2,
  kClipped = 4,
  kGlyphNumbers = 0x10,
  kNoRect = 0x100,
  kSmallChars = 0x200,
  kAdvancesDown = 0x2000,
};

// More than a text may have; laying out takes time and memory.
constexpr std::size_t kMostCharacters = 8192;

// The part that all texts share; offsets count from the record's start.
void ReadRun(const Playback& playback, ByteReader& reader, bool wide) {
  TextRun run;
  run.at = EmfPoint(reader);
  const std::size_t count = std::min<std::size_t>(reader.U32(), kMostCharacters);
  const std::size_t text_at = reader.U32();
  const unsigned options = reader.U32();
  run.rect = EmfRect(reader);
  const std::size_t advances_at = reader.U32();
  run.fill_rect = (options & kOpaque) != 0;
  run.clip_to_rect = (options & kClipped) != 0;
  const Font& font = playback.canvas.State().font;
  const ByteSpan bytes = reader.Piece(text_at, wide ? count * 2 : count);
  if ((options & kGlyphNumbers) != 0) {
    run.text = DecodeGlyphs(bytes);
  } else {
    run.text = wide ? DecodeWide(bytes) : DecodeText(bytes, font);
  }
  const std::size_t step = (options & kAdvancesDown) != 0 ? 8 : 4;
  if (advances_at != 0 && !bytes.empty() && (wide || !IsMultiByte(font))) {
    const ByteSpan advances = reader.Piece(advances_at, count * step);
    for (std::size_t i = 0; i < advances.size(); i += step) run.advances.push_back(ByteReader(advances, i).I32());
  }
  playback.canvas.Text(run);
}

template <bool wide>
void ExtTextOut(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kBoundsModeAndScales = 28;
  reader.Skip(kBoundsModeAndScales);
  ReadRun(playback, reader, wide);
}

template <bool wide>
void PolyTextOut(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kBoundsModeAndScales = 28;
  constexpr std::size_t kRunSize = 40;
  reader.Skip(kBoundsModeAndScales);
  const std::size_t count = reader.U32();
  for (std::size_t i = reader.Capped(count, kRunSize); i > 0 && !playback.canvas.OutOfTime(); --i) {
    ReadRun(playback, reader, wide);
  }
}

void SmallTextOut(const Playback& playback, ByteReader& reader) {
  constexpr std::size_t kModeAndScales = 12;
  TextRun run;
  run.at = EmfPoint(reader);
  const std::size_t count = std::min<std::size_t>(reader.U32(), kMostCharacters);
  const unsigned options = reader.U32();
  reader.Skip(kModeAndScales);
  if ((options & kNoRect) == 0) {
    run.rect = EmfRect(reader);
    run.fill_rect = (options & kOpaque) != 0;
    run.clip_to_rect = (options & kClipped) != 0;
  }
  const bool wide = (options & kSmallChars) == 0;
  const ByteSpan bytes = reader.Piece(reader.At(), wide ? count * 2 : count);
  if ((options & kGlyphNumbers) == 0) {
    // Small ones are the lower halves of wide ones.
    run.text =
        wide ? DecodeWide(bytes)
             : QString::fromLatin1(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
  }
  playback.canvas.Text(run);
}

constexpr RecordHandler kRecords[] = {
    {83, kDraws, ExtTextOut<false>}, {84, kDraws, ExtTextOut<true>}, {96, kDraws, PolyTextOut<false>},
    {97, kDraws, PolyTextOut<true>}, {108, kDraws, SmallTextOut},
};

}  // namespace

std::span<const RecordHandler> EmfTextRecords() { return kRecords; }

}  // namespace quorvale
