#include "effect_cost.h"

#include <unistd.h>

#include "measure.h"
#include "process_figures.h"
#include "transitions/run_transition.h"

namespace quorvale {

EffectCost RunEffect(Bench& bench, LiveShow& show, const std::string& effect, int speed) {
  Process& core = show.Core();
  core.options.Set("SwapAffect", "None");
  show.Tick();
  core.options.Set("SwapAffect", effect);
  core.show.TransitionSpeed = speed;
  EffectCost cost;
  show.Form().PicBase.Drawing = [&cost](const DrawOperation&) { ++cost.calls; };
  const double cpu = CpuSeconds(getpid());
  const double server = CpuSeconds(bench.display.Server());
  const Stopwatch watch;
  RunTransition(core, show.Form().PicPreview);
  show.Present();
  cost.seconds = watch.Seconds();
  cost.cpu_seconds = CpuSeconds(getpid()) - cpu;
  cost.server_seconds = CpuSeconds(bench.display.Server()) - server;
  show.Form().PicBase.Drawing = nullptr;
  return cost;
}

std::string ScreenName(const Bench& bench) {
  return std::to_string(bench.display.Width()) + "x" + std::to_string(bench.display.Height());
}

}  // namespace quorvale
