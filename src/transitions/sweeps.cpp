#include "base/numbers.h"
#include "process/process.h"
#include "toolkit/picture_box.h"
#include "transitions/effect_run.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

// In twips. The pen is wider than either, so that each bar overlaps the last.
constexpr std::int32_t kSidewaysStep = 30;
constexpr std::int32_t kUpAndDownStep = 20;

void UprightBar(const EffectRun& run, std::int32_t position) {
  const auto x = static_cast<float>(position);
  run.PicBase.Line(x, 0, x, run.PicBase.Height(), run.WipeColour);
}

void LevelBar(const EffectRun& run, std::int32_t position) {
  const auto y = static_cast<float>(position);
  run.PicBase.Line(0, y, run.PicBase.Width(), y, run.WipeColour);
}

}  // namespace

void SweepRight(const EffectRun& run) {
  const std::int32_t end = RoundToInt32(run.PicBase.Width());
  for (std::int32_t x = 0; x <= end; x += kSidewaysStep) {
    UprightBar(run, x);
    run.EndStep();
    if (run.process.PreviewSuspended) return;
  }
}

void SweepLeft(const EffectRun& run) {
  for (std::int32_t x = RoundToInt32(run.PicBase.Width()); x >= 0; x -= kSidewaysStep) {
    UprightBar(run, x);
    run.EndStep();
  }
}

void SweepDown(const EffectRun& run) {
  const std::int32_t end = RoundToInt32(run.PicBase.Height());
  for (std::int32_t y = 0; y <= end; y += kUpAndDownStep) {
    LevelBar(run, y);
    run.EndStep();
  }
}

void SweepUp(const EffectRun& run) {
  for (std::int32_t y = RoundToInt32(run.PicBase.Height()); y >= 0; y -= kUpAndDownStep) {
    LevelBar(run, y);
    run.EndStep();
  }
}

}  // namespace quorvale
