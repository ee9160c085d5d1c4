#include "platform/desktop/metafile/device_state.h"

#include <array>
#include <cmath>

namespace quorvale::metafile {
namespace {

// Units per millimetre, by the mode. MM_TEXT has pixels, so that the first two are not used.
constexpr std::array<double, 7> kUnits{1, 1, 10, 100, 100 / 25.4, 1000 / 25.4, 1440 / 25.4};

bool IsUsable(double x, double y) {
  return std::isfinite(x) && std::isfinite(y) && std::abs(x) > 1e-6 && std::abs(y) > 1e-6 && std::abs(x) < 1e12 &&
         std::abs(y) < 1e12;
}

}  // namespace

Mapping::Mapping(const QSizeF& device_pixels, const QSizeF& device_millimetres)
    : device_pixels_(device_pixels), device_millimetres_(device_millimetres) {}

void Mapping::Fit(const QRectF& window, const QRectF& frame) {
  mode_ = MM_ANISOTROPIC;
  window_origin_ = window.topLeft();
  window_extent_ = window.size();
  viewport_origin_ = frame.topLeft();
  viewport_extent_ = frame.size();
}

void Mapping::SetMode(int mode) {
  if (mode < MM_TEXT || mode > MM_ANISOTROPIC || (mode == mode_ && !IsFixed())) return;
  mode_ = mode;
  if (mode == MM_TEXT) {
    window_extent_ = viewport_extent_ = {1, 1};
  } else if (mode < MM_ANISOTROPIC) {
    const double units = kUnits[static_cast<std::size_t>(mode == MM_ISOTROPIC ? MM_LOMETRIC : mode)];
    window_extent_ = device_millimetres_ * units;
    viewport_extent_ = {device_pixels_.width(), -device_pixels_.height()};
  }
}

void Mapping::SetWindowExtent(double x, double y) {
  if (IsFixed() || !IsUsable(x, y)) return;
  window_extent_ = {x, y};
  KeepProportions();
}

void Mapping::SetViewportExtent(double x, double y) {
  if (IsFixed() || !IsUsable(x, y)) return;
  viewport_extent_ = {x, y};
  KeepProportions();
}

void Mapping::ScaleWindowExtent(double x_num, double x_denom, double y_num, double y_denom) {
  SetWindowExtent(window_extent_.width() * x_num / x_denom, window_extent_.height() * y_num / y_denom);
}

void Mapping::ScaleViewportExtent(double x_num, double x_denom, double y_num, double y_denom) {
  SetViewportExtent(viewport_extent_.width() * x_num / x_denom, viewport_extent_.height() * y_num / y_denom);
}

// MM_ISOTROPIC shrinks the viewport along one axis until a unit is as long as along the other.
void Mapping::KeepProportions() {
  if (mode_ != MM_ISOTROPIC) return;
  const double across = std::abs(PageX() * device_millimetres_.width() / device_pixels_.width());
  const double down = std::abs(PageY() * device_millimetres_.height() / device_pixels_.height());
  if (across > down) {
    viewport_extent_.rwidth() *= down / across;
  } else {
    viewport_extent_.rheight() *= across / down;
  }
}

QTransform Mapping::ToDevice() const {
  return world_ * QTransform(PageX(), 0, 0, PageY(), viewport_origin_.x() - window_origin_.x() * PageX(),
                             viewport_origin_.y() - window_origin_.y() * PageY());
}

QRgb DeviceState::Colour(ColourReference reference) const {
  if (reference >> 24U == 1) {
    const std::size_t index = reference & 0xFFFFU;
    return palette != nullptr && index < palette->colours.size() ? palette->colours[index] : qRgb(0, 0, 0);
  }
  return qRgb(static_cast<int>(reference & 0xFFU), static_cast<int>(reference >> 8U & 0xFFU),
              static_cast<int>(reference >> 16U & 0xFFU));
}

}  // namespace quorvale::metafile
