#include "platform/win32/widgets/dialog_fonts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/win32/toolkit/dpi.h"

namespace quorvale {
namespace {

constexpr std::wstring_view kFace = L"MS Shell Dlg 2";
constexpr float kUsualPoints = 8.25F;
constexpr float kPointsPerInch = 72;

}  // namespace

HFONT DialogFonts::Get(float points, bool bold) {
  GdiFont& font = fonts_[{points, bold}];
  if (!font) {
    LOGFONTW description{};
    description.lfHeight =
        -static_cast<LONG>(std::lround((points > 0 ? points : kUsualPoints) * kUsualDpi / kPointsPerInch * scale_));
    description.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    std::copy(kFace.begin(), kFace.end(), description.lfFaceName);
    font.reset(CreateFontIndirectW(&description));
  }
  return font.get();
}

}  // namespace quorvale
