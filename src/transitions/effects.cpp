#include "transitions/effects.h"

#include <array>

#include "base/numbers.h"
#include "base/random.h"
#include "process/show_state.h"
#include "toolkit/image_control.h"
#include "toolkit/picture_box.h"
#include "toolkit/platform.h"

namespace quorvale {
namespace {

// Steps are in twips, pens in pixels. The pen is wider than a step, so shapes overlap and leave no gaps.

void UprightBar(const EffectRun& run, float x) { run.PicBase.Line(x, 0, x, run.PicBase.Height(), run.wipe_colour); }

void LevelBar(const EffectRun& run, float y) { run.PicBase.Line(0, y, run.PicBase.Width(), y, run.wipe_colour); }

// Sweeps: one bar moves across the whole surface.

constexpr std::int32_t kSidewaysStep = 30;
constexpr std::int32_t kUpAndDownStep = 20;

// Unlike the other effects, it stops early while the user edits the lists.
void SweepRight(const EffectRun& run) {
  const std::int32_t end = RoundToInt32(run.PicBase.Width());
  for (std::int32_t x = 0; x <= end; x += kSidewaysStep) {
    UprightBar(run, static_cast<float>(x));
    run.EndStep();
    if (run.show.preview_suspended) return;
  }
}

void SweepLeft(const EffectRun& run) {
  for (std::int32_t x = RoundToInt32(run.PicBase.Width()); x >= 0; x -= kSidewaysStep) {
    UprightBar(run, static_cast<float>(x));
    run.EndStep();
  }
}

void SweepDown(const EffectRun& run) {
  const std::int32_t end = RoundToInt32(run.PicBase.Height());
  for (std::int32_t y = 0; y <= end; y += kUpAndDownStep) {
    LevelBar(run, static_cast<float>(y));
    run.EndStep();
  }
}

void SweepUp(const EffectRun& run) {
  for (std::int32_t y = RoundToInt32(run.PicBase.Height()); y >= 0; y -= kUpAndDownStep) {
    LevelBar(run, static_cast<float>(y));
    run.EndStep();
  }
}

// Sandwiches: two bars start at opposite edges and meet in the middle. They are named after the bars' direction.

constexpr std::int32_t kSandwichStep = 10;

void HorizontalSandwich(const EffectRun& run) {
  const std::int32_t end = RoundToInt32(run.PicBase.Height() / 2);
  for (std::int32_t margin = 0; margin <= end; margin += kSandwichStep) {
    const auto y = static_cast<float>(margin);
    LevelBar(run, y);
    LevelBar(run, run.PicBase.Height() - y);
    run.EndStep();
  }
}

void VerticalSandwich(const EffectRun& run) {
  const std::int32_t end = RoundToInt32(run.PicBase.Width() / 2);
  for (std::int32_t margin = 0; margin <= end; margin += kSandwichStep) {
    const auto x = static_cast<float>(margin);
    UprightBar(run, x);
    UprightBar(run, run.PicBase.Width() - x);
    run.EndStep();
  }
}

// Four bars move inwards, one from each edge.
void ShrinkingSquare(const EffectRun& run) {
  constexpr std::int32_t kStep = 20;
  const std::int32_t end = RoundToInt32(run.PicBase.Height() / 2);
  for (std::int32_t step = 0; step <= end; step += kStep) {
    const auto margin = static_cast<float>(step);
    LevelBar(run, margin);
    LevelBar(run, run.PicBase.Height() - margin);
    UprightBar(run, margin);
    UprightBar(run, run.PicBase.Width() - margin);
    run.EndStep();
  }
}

// A disc grows from the middle. It has the surface's own colours.
void Spotlight(const EffectRun& run) {
  constexpr int kPen = 5;
  constexpr std::int32_t kStep = 30;
  constexpr double kReach = 0.7;  // of the width: past the corners of any usual screen
  PictureBox& PicBase = run.PicBase;
  PicBase.SetDrawWidth(kPen);
  const std::int32_t end = RoundToInt32(static_cast<double>(PicBase.Width()) * kReach);
  for (std::int32_t radius = 0; radius <= end; radius += kStep) {
    PicBase.SetForeColor(PicBase.BackColor());
    PicBase.Circle(PicBase.Width() / 2, PicBase.Height() / 2, static_cast<float>(radius));
    run.EndStep();
  }
}

// Random dots on the picture, which grow by a pixel each. Even the last, large ones may leave gaps, so the picture is
// removed at the end.
void Bubbles(const EffectRun& run) {
  constexpr int kDots = 400;
  ImageControl& PicPreview = run.PicPreview;
  run.PicBase.SetDrawWidth(1);
  for (int dots = 1; dots <= kDots; ++dots) {
    const float x = run.random.Next() * PicPreview.Width();
    const float y = run.random.Next() * PicPreview.Height();
    run.PicBase.PSet(x + PicPreview.Left(), y + PicPreview.Top(), run.wipe_colour);
    run.PumpStep();
    run.PicBase.SetDrawWidth(dots + 1);
    run.Pause();
  }
  PicPreview.SetPicture(nullptr);
}

constexpr auto kEffects = std::to_array<Effect>({
    {"Sweep Right", SweepRight},
    {"Sweep Left", SweepLeft},
    {"Sweep Down", SweepDown},
    {"Sweep Up", SweepUp},
    {"Spotlight", Spotlight},
    {"Bubbles", Bubbles},
    {"Horizontal Sandwich", HorizontalSandwich, 2},
    {"Vertical Sandwich", VerticalSandwich, 2},
    {"Shrinking Square", ShrinkingSquare, 4},
});

}  // namespace

void EffectRun::PumpStep() const {
  pace.PumpEvents();
  if (show.stop_requested) end_program();
}

void EffectRun::Pause() const {
  for (std::int32_t i = 0; i < delay_count; ++i) pace.PumpEvents();
}

std::span<const Effect> Effects() { return kEffects; }

}  // namespace quorvale
