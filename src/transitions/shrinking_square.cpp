#include "base/numbers.h"
#include "toolkit/picture_box.h"
#include "transitions/effect_run.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr std::int32_t kStep = 20;  // twips

}  // namespace

void ShrinkingSquare(const EffectRun& run) {
  PictureBox& PicBase = run.PicBase;
  const Colour colour = run.WipeColour;
  const std::int32_t end = RoundToInt32(PicBase.Height() / 2);
  for (std::int32_t step = 0; step <= end; step += kStep) {
    const auto margin = static_cast<float>(step);
    PicBase.Line(0, margin, PicBase.Width(), margin, colour);
    PicBase.Line(0, PicBase.Height() - margin, PicBase.Width(), PicBase.Height() - margin, colour);
    PicBase.Line(margin, 0, margin, PicBase.Height(), colour);
    PicBase.Line(PicBase.Width() - margin, 0, PicBase.Width() - margin, PicBase.Height(), colour);
    run.EndStep();
  }
}

}  // namespace quorvale
