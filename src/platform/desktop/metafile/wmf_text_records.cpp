// Text of WMF files.

#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/text_decoding.h"
#include "platform/desktop/metafile/wmf_reading.h"

namespace quorvale {
namespace {

enum Option : unsigned { kOpaque = 2, kClipped = 4, kGlyphNumbers = 0x10 };

// Strings are padded to two bytes.
std::size_t Padded(std::size_t count) { return (count + 1) / 2 * 2; }

void TextOut(const Playback& playback, ByteReader& reader) {
  const std::size_t count = reader.U16();
  const ByteSpan bytes = reader.Piece(reader.At(), count);
  reader.Skip(Padded(count));
  TextRun run;
  run.at = WmfPoint(reader);
  run.text = DecodeText(bytes, playback.canvas.State().font);
  playback.canvas.Text(run);
}

void ExtTextOut(const Playback& playback, ByteReader& reader) {
  TextRun run;
  run.at = WmfPoint(reader);
  const std::size_t count = reader.U16();
  const unsigned options = reader.U16();
  run.fill_rect = (options & kOpaque) != 0;
  run.clip_to_rect = (options & kClipped) != 0;
  if (run.fill_rect || run.clip_to_rect) {
    const double left = reader.I16();
    const double top = reader.I16();
    const double right = reader.I16();
    const double bottom = reader.I16();
    run.rect = QRectF(QPointF(left, top), QPointF(right, bottom));
  }
  const ByteSpan bytes = reader.Piece(reader.At(), count);
  reader.Skip(Padded(count));
  const Font& font = playback.canvas.State().font;
  if ((options & kGlyphNumbers) == 0) run.text = DecodeText(bytes, font);
  // A character of two bytes has two advances.
  if (reader.Left() >= count * 2 && !IsMultiByte(font)) {
    for (std::size_t i = 0; i < count; ++i) run.advances.push_back(reader.I16());
  }
  playback.canvas.Text(run);
}

constexpr RecordHandler kRecords[] = {
    {0x0521, kDraws, TextOut},
    {0x0A32, kDraws, ExtTextOut},
};

}  // namespace

std::span<const RecordHandler> WmfTextRecords() { return kRecords; }

}  // namespace quorvale
