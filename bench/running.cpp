#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "bench_files.h"
#include "child_program.h"
#include "groups.h"
#include "process_figures.h"
#include "screen_states.h"
#include "show_settings.h"
#include "test_picture.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr int kPictures = 14;  // more than a minute shows, so that none comes twice
constexpr int kInterval = 5;   // seconds

void RunShow(Bench& bench, const std::string& label, const std::vector<std::string>& command, int seconds) {
  ClearScreen(bench.display);
  const double server = CpuSeconds(bench.display.Server());
  const ChildProgram program(command);
  std::this_thread::sleep_for(std::chrono::seconds(seconds));
  bench.report.Row(
      label, {CpuSeconds(program.Pid()), CpuSeconds(bench.display.Server()) - server, PeakMegabytes(program.Pid())});
}

void RunOurs(Bench& bench, const std::string& effect, bool stretch, const std::vector<std::string>& pictures,
             int seconds) {
  ShowStore().Set({.pictures = pictures, .effect = effect, .stretch = stretch, .interval = kInterval});
  RunShow(bench, "quorvale, " + effect + (stretch ? "" : ", natural size"), {BuiltProgram("quorvale"), "/S"}, seconds);
}

std::vector<std::string> OtherViewer(const std::vector<std::string>& pictures) {
  std::vector<std::string> command = {"feh", "-F", "-Z", "-q", "-Y", "-D", std::to_string(kInterval)};
  command.insert(command.end(), pictures.begin(), pictures.end());
  return command;
}

// What the program does while nothing is to be done.
void MeasureIdle(Bench& bench) {
  constexpr int kSeconds = 5;
  ShowStore().Set({.pictures = {TestPicture(kCameraSize, 0)}});
  ClearScreen(bench.display);
  const ChildProgram program({BuiltProgram("quorvale"), "/S"});
  WaitForPicture(bench.display);
  std::this_thread::sleep_for(std::chrono::seconds(1));
  const long before = WakeUps(program.Pid());
  const double cpu = CpuSeconds(program.Pid());
  std::this_thread::sleep_for(std::chrono::seconds(kSeconds));
  bench.report.Begin("Idle between two ticks, 5 seconds", {{"wake-ups", 0}, {"CPU ms", 2}});
  bench.report.Row("quorvale",
                   {static_cast<double>(WakeUps(program.Pid()) - before), (CpuSeconds(program.Pid()) - cpu) * 1000});
}

}  // namespace

void MeasureShow(Bench& bench) {
  const int seconds = bench.quick ? 16 : 60;
  const std::vector<std::string> pictures = TestPictures(kCameraSize, kPictures);
  bench.report.Begin("A show of 12 MP pictures, one each 5 s, for " + std::to_string(seconds) + " s",
                     {{"CPU s", 2}, {"X CPU s", 2}, {"peak MB", 0}});
  RunOurs(bench, "None", true, pictures, seconds);
  RunShow(bench, "feh", OtherViewer(pictures), seconds);
  RunOurs(bench, "None", false, pictures, seconds);
  if (bench.thorough) {
    for (const Effect& effect : Effects()) RunOurs(bench, std::string(effect.name), true, pictures, seconds);
  }
  MeasureIdle(bench);
}

}  // namespace quorvale
