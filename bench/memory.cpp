#include <chrono>
#include <limits>
#include <string>
#include <thread>

#include "bench_files.h"
#include "child_program.h"
#include "groups.h"
#include "measure.h"
#include "process_figures.h"
#include "screen_states.h"
#include "show_settings.h"
#include "test_picture.h"

namespace quorvale {
namespace {

// The peak comes when the second picture is loaded while the first is still there.
double PeakOfShow(Bench& bench, const std::string& picture, bool stretch) {
  ShowStore store;
  store.Set({.pictures = {picture, picture}, .stretch = stretch, .interval = 1});
  ClearScreen(bench.display);
  const ChildProgram program({BuiltProgram("quorvale"), "/S"});
  WaitUntil("the second picture", [&] { return store.PicturesShown() == 2; });
  return PeakMegabytes(program.Pid());
}

double PeakOfYardstick(Bench& bench, const std::string& picture) {
  ClearScreen(bench.display);
  const ChildProgram program({BuiltProgram("quorvale-yardstick"), picture});
  WaitForPicture(bench.display);
  return PeakMegabytes(program.Pid());
}

double PeakOfEmptyShow(Bench& bench) {
  ShowStore().Set({});
  ClearScreen(bench.display);
  const ChildProgram program({BuiltProgram("quorvale"), "/S"});
  WaitUntil("the window", [&] { return ShowsBackground(bench.display); });
  std::this_thread::sleep_for(std::chrono::seconds(1));  // the first tick has been
  return PeakMegabytes(program.Pid());
}

}  // namespace

void MeasureMemory(Bench& bench) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  bench.report.Begin("Peak memory of the whole program, one process a figure, MB",
                     {{"Stretch on"}, {"Stretch off"}, {"yardstick"}});
  bench.report.Row("no picture", {PeakOfEmptyShow(bench), kNone, kNone});
  for (const PictureSize& size : kTestSizes) {
    const std::string picture = TestPicture(size, 0);
    bench.report.Row(size.name, {PeakOfShow(bench, picture, true), PeakOfShow(bench, picture, false),
                                 PeakOfYardstick(bench, picture)});
  }
}

}  // namespace quorvale
