#include "process/process.h"
#include "toolkit/image_control.h"
#include "toolkit/picture_box.h"
#include "transitions/effect_run.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr int kDots = 400;

}  // namespace

void Bubbles(const EffectRun& run) {
  ImageControl& PicPreview = run.PicPreview;
  run.PicBase.SetDrawWidth(1);
  for (int dots = 0; dots < kDots;) {
    const float x = run.process.random.Next() * PicPreview.Width();
    const float y = run.process.random.Next() * PicPreview.Height();
    run.PicBase.PSet(x + PicPreview.Left(), y + PicPreview.Top(), run.WipeColour);
    ++dots;
    run.PumpStep();
    run.PicBase.SetDrawWidth(dots + 1);
    run.Pause();
  }
  // Takes away what no dot has covered.
  PicPreview.SetPicture(nullptr);
}

}  // namespace quorvale
