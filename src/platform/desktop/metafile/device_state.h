#pragma once

#include <QRegion>
#include <optional>

#include "platform/desktop/metafile/gdi_objects.h"
#include "platform/desktop/metafile/mapping.h"

namespace quorvale {

// All that a file can save and restore.
struct DeviceState {
  explicit DeviceState(Mapping initial) : mapping(initial) {}

  QRgb Colour(ColourReference reference) const;

  Mapping mapping;
  Pen pen;
  Brush brush;
  Font font;
  std::shared_ptr<const Palette> palette;
  ColourReference text_colour = 0;
  ColourReference background = 0xFFFFFF;
  bool opaque_background = true;
  Qt::FillRule fill_rule = Qt::OddEvenFill;
  // 1 to 16: how a pixel that is drawn meets the one that is there.
  unsigned raster_op = 13;
  unsigned text_align = 0;
  bool halftone = false;
  bool arcs_clockwise = false;
  double miter_limit = 10;
  // In device pixels.
  QPointF brush_origin;
  // In the records' units.
  QPointF position;
  double extra_space = 0;    // behind each character
  double justification = 0;  // at each blank
  // In pixels of the target; without one all of it is drawn on. `kept` goes on top of later ones.
  std::optional<QRegion> clip;
  std::optional<QRegion> kept_clip;
};

}  // namespace quorvale
