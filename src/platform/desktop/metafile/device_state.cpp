#include "platform/desktop/metafile/device_state.h"

namespace quorvale {

QRgb DeviceState::Colour(ColourReference reference) const {
  if (reference >> 24U == 1) {
    const std::size_t index = reference & 0xFFFFU;
    return palette != nullptr && index < palette->colours.size() ? palette->colours[index] : qRgb(0, 0, 0);
  }
  return qRgb(static_cast<int>(reference & 0xFFU), static_cast<int>(reference >> 8U & 0xFFU),
              static_cast<int>(reference >> 16U & 0xFFU));
}

}  // namespace quorvale
