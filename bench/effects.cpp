#include <string>

#include "effect_cost.h"
#include "groups.h"
#include "live_show.h"
#include "show_settings.h"
#include "test_picture.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

void MeasureUnpaced(Bench& bench, LiveShow& show) {
  bench.report.Begin("Effects at " + ScreenName(bench) + ", the passes' lengths at zero",
                     {{"steps", 0}, {"steps/s", 0}, {"wall ms", 0}, {"CPU ms", 0}, {"X CPU ms", 0}});
  for (const Effect& effect : Effects()) {
    const EffectCost cost = RunEffect(bench, show, std::string(effect.name), 20);
    const int steps = cost.calls / effect.shapes;
    bench.report.Row(std::string(effect.name), {static_cast<double>(steps), steps / cost.seconds, cost.seconds * 1000,
                                                cost.cpu_seconds * 1000, cost.server_seconds * 1000});
  }
}

void MeasurePaced(Bench& bench, int speed) {
  LiveShow show(bench.display);
  bench.report.Begin(
      "Effects at " + ScreenName(bench) + ", the passes' lengths in force, speed " + std::to_string(speed),
      {{"wall s", 2}, {"CPU s", 2}, {"X CPU s", 2}, {"CPU %", 0}});
  for (const Effect& effect : Effects()) {
    const EffectCost cost = RunEffect(bench, show, std::string(effect.name), speed);
    bench.report.Row(std::string(effect.name), {cost.seconds, cost.cpu_seconds, cost.server_seconds,
                                                (cost.cpu_seconds + cost.server_seconds) / cost.seconds * 100});
  }
}

}  // namespace

void MeasureEffects(Bench& bench) {
  ShowStore().Set({.pictures = {TestPicture(kCameraSize, 0)}});
  {
    LiveShow show(bench.display, kNoLengths);
    MeasureUnpaced(bench, show);
  }
  MeasurePaced(bench, 20);
  if (!bench.quick) MeasurePaced(bench, 10);
  if (bench.thorough) MeasurePaced(bench, 1);
}

}  // namespace quorvale
