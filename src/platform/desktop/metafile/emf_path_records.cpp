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
    {59, kPrepares, Act<&MetafileCanvas::BeginPath>},
    {60, kPrepares, Act<&MetafileCanvas::EndPath>},
    {61, kPrepares, Act<&MetafileCanvas::CloseFigure>},
    {62, kDraws, UsePath<PathUse::kFill>},
    {63, kDraws, UsePath<PathUse::kBoth>},
    {64, kDraws, UsePath<PathUse::kStroke>},
    {65, kPrepares, Act<&MetafileCanvas::FlattenPath>},
    {66, kPrepares, Act<&MetafileCanvas::WidenPath>},
    {67, kPrepares, ClipToPath},
    {68, kPrepares, Act<&MetafileCanvas::AbortPath>},
};

}  // namespace

std::span<const RecordHandler> EmfPathRecords() { return kRecords; }

}  // namespace quorvale
