// The steps of each effect and what they cost; Spotlight beside a bare loop that fills the same pixels.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "bench_files.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "processes.h"
#include "transitions/effects.h"
#include "transitions/run_transition.h"

namespace quorvale {
namespace {

// Passes without a nominal length: each takes as long as its work.
constexpr PassLengths kNoLengths{std::chrono::nanoseconds(0), std::chrono::nanoseconds(0)};

struct EffectCost {
  int calls = 0;  // of drawing
  double seconds = 0;
  double cpu_seconds = 0;
  double server_seconds = 0;  // CPU time of the X server
};

// Puts a picture on the screen and wipes it away. Returns when the X server has the last step.
EffectCost RunEffect(Bench& bench, LiveShow& show, const std::string& effect, int speed) {
  Process& core = show.Core();
  core.options.Set("SwapAffect", "None");
  show.Tick();
  core.options.Set("SwapAffect", effect);
  core.show.transition_speed = speed;
  EffectCost cost;
  show.Form().PicBase.Drawing = [&cost](const DrawOperation&) { ++cost.calls; };
  const double cpu = CpuSeconds(getpid());
  const double server = CpuSeconds(bench.display.Server());
  const Stopwatch watch;
  RunTransition(core, show.Form().PicBase, show.Form().PicPreview);
  show.Present();
  cost.seconds = watch.Seconds();
  cost.cpu_seconds = CpuSeconds(getpid()) - cpu;
  cost.server_seconds = CpuSeconds(bench.display.Server()) - server;
  show.Form().PicBase.Drawing = nullptr;
  return cost;
}

// For example "1920x1080".
std::string ScreenName(const Bench& bench) {
  return std::to_string(bench.display.Width()) + "x" + std::to_string(bench.display.Height());
}

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

// Spotlight's geometry: its radius grows by `kStep` up to `kReach` of the width, and half the pen lies outside it.
constexpr int kStep = 2;  // pixels
constexpr double kReach = 0.7;
constexpr double kHalfPen = 2.5;

// Fills the same pixels as Spotlight by a bare loop in memory.
class FilledRings {
 public:
  explicit FilledRings(const PixelRect& screen)
      : width_(screen.width), height_(screen.height), pixels_(static_cast<std::size_t>(width_) * height_) {}

  int Count() const { return static_cast<int>(width_ * kReach) / kStep + 1; }

  // The whole disc for each ring.
  void FillDiscs() {
    for (int ring = 0; ring < Count(); ++ring) {
      for (int y = 0; y < height_; ++y) Fill(y, Left(ring, y), width_ - Left(ring, y));
    }
  }

  // For each ring only the pixels that it adds.
  void FillAdditions() {
    for (int ring = 0; ring < Count(); ++ring) {
      for (int y = 0; y < height_; ++y) {
        const int left = Left(ring, y);
        const int before = ring > 0 ? Left(ring - 1, y) : width_ / 2;
        Fill(y, left, before);
        Fill(y, width_ - before, width_ - left);
      }
    }
  }

 private:
  // The first column of the ring in that row; the middle if it does not reach the row.
  int Left(int ring, int y) const {
    const double radius = ring * kStep + kHalfPen;
    const double down = y + 0.5 - height_ / 2.0;
    if (radius <= std::abs(down)) return width_ / 2;
    return std::max(0, static_cast<int>(width_ / 2.0 - std::sqrt(radius * radius - down * down)));
  }

  void Fill(int y, int left, int right) {
    if (left >= right) return;
    Pixel* const row = pixels_.data() + static_cast<std::size_t>(y) * width_;
    std::fill(row + left, row + right, ToPixel(kShowBackground));
  }

  int width_;
  int height_;
  std::vector<Pixel> pixels_;
};

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

void MeasureSpotlight(Bench& bench) {
  ShowStore().Set({.pictures = {TestPicture(kCameraSize, 0)}});
  LiveShow show(bench.display, kNoLengths);
  FilledRings rings(show.Form().PicBase.Pixels().Bounds());
  const std::vector<double> cost = AlternatingMedians(
      bench.quick ? 1 : 5, {
                               [&] { return RunEffect(bench, show, "Spotlight", 20).seconds * 1000; },
                               [&] { return MillisecondsOf([&] { rings.FillDiscs(); }); },
                               [&] { return MillisecondsOf([&] { rings.FillAdditions(); }); },
                           });
  bench.report.Begin("Spotlight at " + ScreenName(bench) + ", the passes' lengths at zero, ms",
                     {{"Spotlight"}, {"discs"}, {"additions"}, {"to discs", 2}, {"to additions", 2}});
  bench.report.Row(std::to_string(rings.Count()) + " rings",
                   {cost[0], cost[1], cost[2], cost[0] / cost[1], cost[0] / cost[2]});
  Report::Remark("discs: a bare loop that fills every pixel of its disc once for each ring, in memory;");
  Report::Remark("additions: only the pixels that the ring adds. Spotlight does what it does on the screen.");
}

}  // namespace quorvale
