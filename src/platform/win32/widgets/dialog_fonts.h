#pragma once

#include <map>
#include <utility>

#include "platform/win32/toolkit/gdi.h"

namespace quorvale {

// The faces of a dialog's controls, at the resolution of the dialog's monitor.
class DialogFonts {
 public:
  explicit DialogFonts(float scale) : scale_(scale) {}

  // 0 points are the usual size. Lives as long as this object.
  HFONT Get(float points, bool bold);

 private:
  float scale_;
  std::map<std::pair<float, bool>, GdiFont> fonts_;
};

}  // namespace quorvale
