#include "base/numbers.h"
#include "toolkit/picture_box.h"
#include "transitions/effect_run.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr int kPen = 5;             // pixels
constexpr std::int32_t kStep = 30;  // twips
constexpr double kReach = 0.7;      // of the width: past the corners of any usual screen

}  // namespace

void Spotlight(const EffectRun& run) {
  PictureBox& PicBase = run.PicBase;
  PicBase.SetDrawWidth(kPen);
  const std::int32_t end = RoundToInt32(static_cast<double>(PicBase.Width()) * kReach);
  for (std::int32_t radius = 0; radius <= end; radius += kStep) {
    PicBase.SetForeColor(PicBase.BackColor());
    PicBase.Circle(PicBase.Width() / 2, PicBase.Height() / 2, static_cast<float>(radius));
    run.EndStep();
  }
}

}  // namespace quorvale
