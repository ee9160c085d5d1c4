#pragma once

#include <QPointF>
#include <QRegion>
#include <QSizeF>
#include <QTransform>
#include <memory>
#include <optional>

#include "platform/desktop/metafile/objects.h"

namespace quorvale::metafile {

enum MapMode : int {
  MM_TEXT = 1,
  MM_LOMETRIC,
  MM_HIMETRIC,
  MM_LOENGLISH,
  MM_HIENGLISH,
  MM_TWIPS,
  MM_ISOTROPIC,
  MM_ANISOTROPIC,
};

// From logical units to device pixels: first the world transform, then the window onto the viewport.
class Mapping {
 public:
  // Starts with MM_TEXT.
  Mapping(const QSizeF& device_pixels, const QSizeF& device_millimetres);
  // MM_ANISOTROPIC with `window` mapped onto `frame`. Records may change it.
  void Fit(const QRectF& window, const QRectF& frame);

  // Any other number is ignored.
  void SetMode(int mode);
  // Ignored in the fixed modes, and if an extent is 0 or too large.
  void SetWindowExtent(double x, double y);
  void SetViewportExtent(double x, double y);
  void ScaleWindowExtent(double x_num, double x_denom, double y_num, double y_denom);
  void ScaleViewportExtent(double x_num, double x_denom, double y_num, double y_denom);
  void SetWindowOrigin(QPointF origin) { window_origin_ = origin; }
  void SetViewportOrigin(QPointF origin) { viewport_origin_ = origin; }
  QPointF WindowOrigin() const { return window_origin_; }
  QPointF ViewportOrigin() const { return viewport_origin_; }
  // Whether the mode, not the records, sets the extents.
  bool IsFixed() const { return mode_ < MM_ISOTROPIC; }

  void SetWorld(const QTransform& world) { world_ = world; }
  const QTransform& World() const { return world_; }
  // Device pixels per page unit. Negative where the axis runs left or up.
  double PageX() const { return viewport_extent_.width() / window_extent_.width(); }
  double PageY() const { return viewport_extent_.height() / window_extent_.height(); }
  QTransform ToDevice() const;

 private:
  void KeepProportions();

  QSizeF device_pixels_;
  QSizeF device_millimetres_;
  int mode_ = MM_TEXT;
  QPointF window_origin_;
  QPointF viewport_origin_;
  QSizeF window_extent_{1, 1};
  QSizeF viewport_extent_{1, 1};
  QTransform world_;
};

// What SaveDC saves and RestoreDC restores.
struct DeviceState {
  explicit DeviceState(Mapping initial) : mapping(initial) {}

  // Palette entries that do not exist are black.
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
  // The mix mode of lines and areas, 1 to 16.
  unsigned rop2 = 13;
  // TA_ flags.
  unsigned text_align = 0;
  bool halftone = false;
  bool arcs_clockwise = false;
  double miter_limit = 10;
  // In device pixels.
  QPointF brush_origin;
  // The current position, in logical units.
  QPointF position;
  // Added after each character, in logical units.
  double extra_space = 0;
  // Added after each blank, in logical units.
  double justification = 0;
  // The clip region in pixels of the target; without one nothing is clipped.
  std::optional<QRegion> clip;
  // The clip region that EMR_SETMETARGN kept. Every later one is cut to it.
  std::optional<QRegion> meta_clip;
};

}  // namespace quorvale::metafile
