#include "base/numbers.h"
#include "toolkit/picture_box.h"
#include "transitions/effect_run.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr std::int32_t kStep = 10;  // twips

}  // namespace

void VerticalSandwich(const EffectRun& run) {
  PictureBox& PicBase = run.PicBase;
  const std::int32_t end = RoundToInt32(PicBase.Width() / 2);
  for (std::int32_t margin = 0; margin <= end; margin += kStep) {
    const auto x = static_cast<float>(margin);
    PicBase.Line(x, 0, x, PicBase.Height(), run.WipeColour);
    PicBase.Line(PicBase.Width() - x, 0, PicBase.Width() - x, PicBase.Height(), run.WipeColour);
    run.EndStep();
  }
}

void HorizontalSandwich(const EffectRun& run) {
  PictureBox& PicBase = run.PicBase;
  const std::int32_t end = RoundToInt32(PicBase.Height() / 2);
  for (std::int32_t margin = 0; margin <= end; margin += kStep) {
    const auto y = static_cast<float>(margin);
    PicBase.Line(0, y, PicBase.Width(), y, run.WipeColour);
    PicBase.Line(0, PicBase.Height() - y, PicBase.Width(), PicBase.Height() - y, run.WipeColour);
    run.EndStep();
  }
}

}  // namespace quorvale
