#include "transitions/run_transition.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "process/process.h"
#include "system/host_system.h"
#include "toolkit/image_control.h"
#include "toolkit/picture_box.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr int kWidePen = 30;  // pixels

// Rounding makes the first and the last effect half as likely as the others.
std::string DrawEffect(Process& process) {
  process.random.Seed(process.system.host.ClockSeed());
  const auto most = static_cast<double>(Effects().size());
  const std::int32_t number = RoundToInt32(static_cast<double>(process.random.Next()) * (most - 1) + 1);
  return std::string(Effects()[static_cast<std::size_t>(number) - 1].name);
}

// Fails with kOverflow for speeds far outside the dialog's range.
std::int32_t ComputeDelayCount(const Process& process) {
  const double speed = process.show.transition_speed;
  const bool preview = process.mode == RunMode::kPreview || process.mode == RunMode::kConfiguration;
  return RoundToInt32(preview ? (21 - speed) * 200 : 401 - speed * 20);
}

}  // namespace

void RunTransition(Process& process, PictureBox& PicBase, ImageControl& PicPreview) {
  std::string name = process.options.SwapAffect();
  const auto wipe_colour = process.options.WipeColour();
  if (name == kNoEffect) return;
  if (name == kRandomEffect) name = DrawEffect(process);
  PicBase.SetDrawWidth(kWidePen);
  const std::int32_t delay_count = ComputeDelayCount(process);
  const auto effect = std::ranges::find(Effects(), name, &Effect::name);
  if (effect == Effects().end()) return;
  const std::unique_ptr<PacedRun> pace = PicBase.OpenPacedRun();
  effect->run({.show = process.show,
               .random = process.random,
               .PicBase = PicBase,
               .PicPreview = PicPreview,
               .pace = *pace,
               .wipe_colour = wipe_colour,
               .delay_count = delay_count,
               .end_program = [&process] { EndSaver(process); }});
}

}  // namespace quorvale
