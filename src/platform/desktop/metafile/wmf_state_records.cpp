// Mapping, modes and clipping of WMF files. Their parameters come last one first.

#include "platform/desktop/metafile/playback.h"
#include "platform/desktop/metafile/wmf_reading.h"

namespace quorvale {
namespace {

DeviceState& State(const Playback& playback) { return playback.canvas.State(); }
Mapping& Map(const Playback& playback) { return playback.canvas.State().mapping; }

void SetBackgroundMode(const Playback& playback, ByteReader& reader) {
  State(playback).opaque_background = reader.U16() != 1;
}
void SetMapMode(const Playback& playback, ByteReader& reader) { Map(playback).SetMode(reader.U16()); }
void SetDrawingMode(const Playback& playback, ByteReader& reader) { State(playback).raster_op = reader.U16(); }
void SetFillMode(const Playback& playback, ByteReader& reader) {
  State(playback).fill_rule = reader.U16() == 2 ? Qt::WindingFill : Qt::OddEvenFill;
}
void SetStretchMode(const Playback& playback, ByteReader& reader) { State(playback).halftone = reader.U16() == 4; }
void SetExtraSpace(const Playback& playback, ByteReader& reader) { State(playback).extra_space = reader.I16(); }
void SetTextAlign(const Playback& playback, ByteReader& reader) { State(playback).text_align = reader.U16(); }
void SetTextColour(const Playback& playback, ByteReader& reader) { State(playback).text_colour = reader.U32(); }
void SetBackground(const Playback& playback, ByteReader& reader) { State(playback).background = reader.U32(); }
void SetJustification(const Playback& playback, ByteReader& reader) {
  const double count = reader.U16();
  const double space = reader.I16();
  State(playback).justification = count > 0 ? space / count : 0;
}

void SetWindowOrigin(const Playback& playback, ByteReader& reader) { Map(playback).SetWindowOrigin(WmfPoint(reader)); }
void SetViewportOrigin(const Playback& playback, ByteReader& reader) {
  Map(playback).SetViewportOrigin(WmfPoint(reader));
}
void OffsetWindowOrigin(const Playback& playback, ByteReader& reader) {
  Map(playback).SetWindowOrigin(Map(playback).WindowOrigin() + WmfPoint(reader));
}
void OffsetViewportOrigin(const Playback& playback, ByteReader& reader) {
  Map(playback).SetViewportOrigin(Map(playback).ViewportOrigin() + WmfPoint(reader));
}
void SetWindowExtent(const Playback& playback, ByteReader& reader) {
  const QPointF extent = WmfPoint(reader);
  Map(playback).SetWindowExtent(extent.x(), extent.y());
}
void SetViewportExtent(const Playback& playback, ByteReader& reader) {
  const QPointF extent = WmfPoint(reader);
  Map(playback).SetViewportExtent(extent.x(), extent.y());
}

struct Ratio {
  double x_up, x_down, y_up, y_down;
};

Ratio ReadRatio(ByteReader& reader) {
  Ratio ratio{};
  for (double* part : {&ratio.y_down, &ratio.y_up, &ratio.x_down, &ratio.x_up}) *part = reader.I16();
  return ratio;
}

void ScaleWindowExtent(const Playback& playback, ByteReader& reader) {
  const Ratio ratio = ReadRatio(reader);
  Map(playback).ScaleWindowExtent(ratio.x_up, ratio.x_down, ratio.y_up, ratio.y_down);
}
void ScaleViewportExtent(const Playback& playback, ByteReader& reader) {
  const Ratio ratio = ReadRatio(reader);
  Map(playback).ScaleViewportExtent(ratio.x_up, ratio.x_down, ratio.y_up, ratio.y_down);
}

void SaveState(const Playback& playback, ByteReader& /*reader*/) { playback.canvas.Save(); }
void RestoreState(const Playback& playback, ByteReader& reader) { playback.canvas.Restore(reader.I16()); }

void ExcludeClip(const Playback& playback, ByteReader& reader) { playback.canvas.ExcludeClip(WmfRect(reader)); }
void IntersectClip(const Playback& playback, ByteReader& reader) { playback.canvas.IntersectClip(WmfRect(reader)); }
void OffsetClip(const Playback& playback, ByteReader& reader) { playback.canvas.OffsetClip(WmfPoint(reader)); }

constexpr RecordHandler kRecords[] = {
    {0x001E, kPrepares, SaveState},          {0x0127, kPrepares, RestoreState},
    {0x0102, kPrepares, SetBackgroundMode},  {0x0103, kPrepares, SetMapMode},
    {0x0104, kPrepares, SetDrawingMode},     {0x0106, kPrepares, SetFillMode},
    {0x0107, kPrepares, SetStretchMode},     {0x0108, kPrepares, SetExtraSpace},
    {0x012E, kPrepares, SetTextAlign},       {0x0201, kPrepares, SetBackground},
    {0x0209, kPrepares, SetTextColour},      {0x020A, kPrepares, SetJustification},
    {0x020B, kPrepares, SetWindowOrigin},    {0x020C, kPrepares, SetWindowExtent},
    {0x020D, kPrepares, SetViewportOrigin},  {0x020E, kPrepares, SetViewportExtent},
    {0x020F, kPrepares, OffsetWindowOrigin}, {0x0211, kPrepares, OffsetViewportOrigin},
    {0x0410, kPrepares, ScaleWindowExtent},  {0x0412, kPrepares, ScaleViewportExtent},
    {0x0415, kPrepares, ExcludeClip},        {0x0416, kPrepares, IntersectClip},
    {0x0220, kPrepares, OffsetClip},
};

}  // namespace

std::span<const RecordHandler> WmfStateRecords() { return kRecords; }

}  // namespace quorvale
