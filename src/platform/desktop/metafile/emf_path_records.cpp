// Paths of EMF files.

#include "platform/desktop/metafile/playback.h"

namespace quorvale {
namespace {

template <void (MetafileCanvas::*act)()>
void Act(const Playback& playback, ByteReader& /*reader*/) {
  (playback.canvas.*act)();
}

template <PathUse use>
void UsePath(const Playback& playback, ByteReader& /*reader*/) {
  playback.canvas.UsePath(use);
}

void ClipToPath(const Playback& playback, ByteReader& reader) {
  playback.canvas.ClipToPath(static_cast<ClipMode>(reader.U32()));
}

constexpr RecordHandler kRecords[] = {
    {59, Act<&MetafileCanvas::BeginPath>},
    {60, Act<&MetafileCanvas::EndPath>},
    {61, Act<&MetafileCanvas::CloseFigure>},
    {62, UsePath<PathUse::kFill>, true},
    {63, UsePath<PathUse::kBoth>, true},
    {64, UsePath<PathUse::kStroke>, true},
    {65, Act<&MetafileCanvas::FlattenPath>},
    {66, Act<&MetafileCanvas::WidenPath>},
    {67, ClipToPath},
    {68, Act<&MetafileCanvas::AbortPath>},
};

}  // namespace

std::span<const RecordHandler> EmfPathRecords() { return kRecords; }

}  // namespace quorvale
