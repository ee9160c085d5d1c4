#include "platform/win32/toolkit/text_painter.h"

#include <algorithm>
#include <cmath>

#include "platform/common/typeface.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/toolkit/gdi.h"

namespace quorvale {
namespace {

// The system takes missing letters from other fonts.
GdiFont MakeFont(const Font& font, int height) {
  const bool is_serif = IsSerif(font);
  LOGFONTW description{};
  description.lfHeight = -height;
  description.lfWeight = FW_NORMAL;
  description.lfCharSet = DEFAULT_CHARSET;
  description.lfOutPrecision = OUT_TT_ONLY_PRECIS;
  description.lfQuality = ANTIALIASED_QUALITY;
  description.lfPitchAndFamily = static_cast<BYTE>(VARIABLE_PITCH | (is_serif ? FF_ROMAN : FF_SWISS));
  std::copy_n(is_serif ? L"Times New Roman" : L"Arial", is_serif ? 16 : 6, description.lfFaceName);
  return GdiFont(CreateFontIndirectW(&description));
}

// One line of text in its font.
class Line {
 public:
  Line(const std::string& text, const Font& font, int height) : text_(ToWide(text)), font_(MakeFont(font, height)) {
    const MemoryContext context;
    context.Select(font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(context.Get(), &metrics);
    GetTextExtentPoint32W(context.Get(), text_.data(), static_cast<int>(text_.size()), &size_);
    size_.cy = metrics.tmHeight;
  }

  int Width() const { return size_.cx; }
  int Height() const { return size_.cy; }

  void Draw(const PixelBitmap& bitmap, int left, int top, Colour colour) const {
    const MemoryContext context;
    context.Select(bitmap.Get());
    context.Select(font_.get());
    SetBkMode(context.Get(), TRANSPARENT);
    SetTextColor(context.Get(), colour);
    TextOutW(context.Get(), left, top, text_.data(), static_cast<int>(text_.size()));
    GdiFlush();
  }

 private:
  std::wstring text_;
  GdiFont font_;
  SIZE size_{};
};

}  // namespace

PixelRect GdiTextPainter::Measure(const std::string& text, const Font& font, float scale) {
  const Line line(text, font, FontHeight(font, scale));
  return {0, 0, line.Width(), line.Height()};
}

PixelRect GdiTextPainter::Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                               Colour colour, float scale) {
  const Line line(text, font, FontHeight(font, scale));
  const PixelRect changed =
      Intersect({left - kGlyphOverhang, top, line.Width() + 2 * kGlyphOverhang, line.Height()}, target.Bounds());
  if (changed.IsEmpty()) return {};

  const PixelBitmap bitmap(changed.width, changed.height);
  for (int y = 0; y < changed.height; ++y) {
    std::copy_n(target.Row(changed.top + y) + changed.left, changed.width, bitmap.Pixels().Row(y));
  }
  line.Draw(bitmap, left - changed.left, top - changed.top, colour);
  for (int y = 0; y < changed.height; ++y) {
    const Pixel* const drawn = bitmap.Pixels().Row(y);
    std::transform(drawn, drawn + changed.width, target.Row(changed.top + y) + changed.left,
                   [](Pixel pixel) { return pixel | 0xFF000000U; });
  }
  return changed;
}

int GdiTextPainter::FontHeight(const Font& font, float scale) const {
  return static_cast<int>(std::lround(FontPixels(font, pixels_per_inch_, scale)));
}

}  // namespace quorvale
