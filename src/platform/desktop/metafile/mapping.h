#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace quorvale {

// How the units of the records become pixels of the device: first the world's transform, then the
// window onto the viewport.
class Mapping {
 public:
  enum Mode : int {
    kText = 1,
    kLowMetric,
    kHighMetric,
    kLowEnglish,
    kHighEnglish,
    kTwips,
    kIsotropic,
    kAnisotropic,
  };

  // Starts in pixels.
  Mapping(const QSizeF& device_pixels, const QSizeF& device_millimetres);
  // A mapping of `window` onto `frame` that records may change.
  void Fit(const QRectF& window, const QRectF& frame);

  void SetMode(int mode);
  // Extents are kept by the fixed modes.
  void SetWindowExtent(double x, double y);
  void SetViewportExtent(double x, double y);
  void ScaleWindowExtent(double x_up, double x_down, double y_up, double y_down);
  void ScaleViewportExtent(double x_up, double x_down, double y_up, double y_down);
  void SetWindowOrigin(QPointF origin) { window_origin_ = origin; }
  void SetViewportOrigin(QPointF origin) { viewport_origin_ = origin; }
  QPointF WindowOrigin() const { return window_origin_; }
  QPointF ViewportOrigin() const { return viewport_origin_; }
  bool IsFixed() const { return mode_ < kIsotropic; }

  void SetWorld(const QTransform& world) { world_ = world; }
  const QTransform& World() const { return world_; }
  // Device pixels to a unit, less than 0 where it counts the other way.
  double PageX() const { return viewport_extent_.width() / window_extent_.width(); }
  double PageY() const { return viewport_extent_.height() / window_extent_.height(); }
  QTransform ToDevice() const;

 private:
  void KeepProportions();

  QSizeF device_pixels_;
  QSizeF device_millimetres_;
  int mode_ = kText;
  QPointF window_origin_;
  QPointF viewport_origin_;
  QSizeF window_extent_{1, 1};
  QSizeF viewport_extent_{1, 1};
  QTransform world_;
};

}  // namespace quorvale
