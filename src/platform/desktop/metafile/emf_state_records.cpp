// Mapping and modes of EMF files.

#include "platform/desktop/metafile/emf_reading.h"
#include "platform/desktop/metafile/playback.h"

namespace quorvale {
namespace {

DeviceState& State(const Playback& playback) { return playback.canvas.State(); }
Mapping& Map(const Playback& playback) { return playback.canvas.State().mapping; }

void SetWindowExtent(const Playback& playback, ByteReader& reader) {
  const QSizeF extent = EmfSize(reader);
  Map(playback).SetWindowExtent(extent.width(), extent.height());
}
void SetWindowOrigin(const Playback& playback, ByteReader& reader) { Map(playback).SetWindowOrigin(EmfPoint(reader)); }
void SetViewportExtent(const Playback& playback, ByteReader& reader) {
  const QSizeF extent = EmfSize(reader);
  Map(playback).SetViewportExtent(extent.width(), extent.height());
}
void SetViewportOrigin(const Playback& playback, ByteReader& reader) {
  Map(playback).SetViewportOrigin(EmfPoint(reader));
}
void ScaleWindowExtent(const Playback& playback, ByteReader& reader) {
  const QPointF across = EmfPoint(reader);
  const QPointF down = EmfPoint(reader);
  Map(playback).ScaleWindowExtent(across.x(), across.y(), down.x(), down.y());
}
void ScaleViewportExtent(const Playback& playback, ByteReader& reader) {
  const QPointF across = EmfPoint(reader);
  const QPointF down = EmfPoint(reader);
  Map(playback).ScaleViewportExtent(across.x(), across.y(), down.x(), down.y());
}
void SetMapMode(const Playback& playback, ByteReader& reader) { Map(playback).SetMode(reader.I32()); }

void SetWorld(const Playback& playback, ByteReader& reader) { Map(playback).SetWorld(EmfTransform(reader)); }
void ModifyWorld(const Playback& playback, ByteReader& reader) {
  enum : unsigned { kIdentity = 1, kBefore, kAfter, kSet };
  const QTransform change = EmfTransform(reader);
  switch (reader.U32()) {
    case kIdentity:
      Map(playback).SetWorld({});
      break;
    case kBefore:
      Map(playback).SetWorld(change * Map(playback).World());
      break;
    case kAfter:
      Map(playback).SetWorld(Map(playback).World() * change);
      break;
    case kSet:
      Map(playback).SetWorld(change);
      break;
    default:
      break;
  }
}

void SaveState(const Playback& playback, ByteReader& /*reader*/) { playback.canvas.Save(); }
void RestoreState(const Playback& playback, ByteReader& reader) { playback.canvas.Restore(reader.I32()); }

void SetBrushOrigin(const Playback& playback, ByteReader& reader) { State(playback).brush_origin = EmfPoint(reader); }
void SetBackgroundMode(const Playback& playback, ByteReader& reader) {
  State(playback).opaque_background = reader.U32() != 1;
}
void SetFillMode(const Playback& playback, ByteReader& reader) {
  State(playback).fill_rule = reader.U32() == 2 ? Qt::WindingFill : Qt::OddEvenFill;
}
void SetDrawingMode(const Playback& playback, ByteReader& reader) { State(playback).raster_op = reader.U32(); }
void SetStretchMode(const Playback& playback, ByteReader& reader) { State(playback).halftone = reader.U32() == 4; }
void SetTextAlign(const Playback& playback, ByteReader& reader) { State(playback).text_align = reader.U32(); }
void SetTextColour(const Playback& playback, ByteReader& reader) { State(playback).text_colour = reader.U32(); }
void SetBackground(const Playback& playback, ByteReader& reader) { State(playback).background = reader.U32(); }
void SetArcDirection(const Playback& playback, ByteReader& reader) {
  State(playback).arcs_clockwise = reader.U32() == 2;
}
void SetMiterLimit(const Playback& playback, ByteReader& reader) {
  // Told as a whole number, though the format says otherwise.
  const double limit = reader.U32();
  if (limit >= 1 && limit < 1000) State(playback).miter_limit = limit;
}
void SetJustification(const Playback& playback, ByteReader& reader) {
  const double space = reader.I32();
  const double count = reader.I32();
  State(playback).justification = count > 0 ? space / count : 0;
}

constexpr RecordHandler kRecords[] = {
    {9, kPrepares, SetWindowExtent},    {10, kPrepares, SetWindowOrigin},     {11, kPrepares, SetViewportExtent},
    {12, kPrepares, SetViewportOrigin}, {13, kPrepares, SetBrushOrigin},      {17, kPrepares, SetMapMode},
    {18, kPrepares, SetBackgroundMode}, {19, kPrepares, SetFillMode},         {20, kPrepares, SetDrawingMode},
    {21, kPrepares, SetStretchMode},    {22, kPrepares, SetTextAlign},        {24, kPrepares, SetTextColour},
    {25, kPrepares, SetBackground},     {31, kPrepares, ScaleViewportExtent}, {32, kPrepares, ScaleWindowExtent},
    {33, kPrepares, SaveState},         {34, kPrepares, RestoreState},        {35, kPrepares, SetWorld},
    {36, kPrepares, ModifyWorld},       {57, kPrepares, SetArcDirection},     {58, kPrepares, SetMiterLimit},
    {120, kPrepares, SetJustification},
};

}  // namespace

std::span<const RecordHandler> EmfStateRecords() { return kRecords; }

}  // namespace quorvale
