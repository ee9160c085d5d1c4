// The program as a whole: its start and end, its memory, and what a running show costs.

#include <chrono>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bench_files.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "platform/desktop/system/x11_windows.h"
#include "processes.h"
#include "saver/main_form.h"
#include "settings/options.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr xcb_keycode_t kSpaceBar = 65;

void WatchForWindows(XDisplay& display) {
  constexpr std::uint32_t kEvents[] = {XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
  xcb_change_window_attributes(display.Connection(), display.Screen().root, XCB_CW_EVENT_MASK, kEvents);
  RoundTrip(display.Connection());
}

// Whether any window has been put on the screen since the last call.
bool HasNewWindow(XDisplay& display) {
  bool found = false;
  while (xcb_generic_event_t* const event = xcb_poll_for_event(display.Connection())) {
    found |= (event->response_type & 0x7F) == XCB_MAP_NOTIFY;
    std::free(event);
  }
  return found;
}

void PressKey(XDisplay& display, xcb_window_t window) {
  xcb_key_press_event_t key{};
  key.response_type = XCB_KEY_PRESS;
  key.detail = kSpaceBar;
  key.root = display.Screen().root;
  key.event = window;
  key.same_screen = 1;
  xcb_send_event(display.Connection(), 0, window, XCB_EVENT_MASK_KEY_PRESS, reinterpret_cast<const char*>(&key));
  xcb_flush(display.Connection());
}

// In milliseconds.
struct StartTimes {
  double mapped = 0;
  double shown = 0;
  double gone = 0;   // from the key
  double ended = 0;  // from the key
};

// Starts a show and ends it by a key as soon as `moment` has come.
StartTimes StartAndEnd(Bench& bench, const std::function<void()>& moment) {
  XDisplay& display = bench.display;
  ClearScreen(display);
  HasNewWindow(display);
  StartTimes times;
  const Stopwatch since_start;
  ChildProgram program({BuiltProgram("quorvale"), "/S"});
  WaitUntil("the window", [&] {
    if (times.mapped == 0 && HasNewWindow(display)) times.mapped = since_start.Milliseconds();
    return ShowsBackground(display);
  });
  times.shown = since_start.Milliseconds();
  moment();
  const xcb_window_t window = FindTopLevelByTitle(display.Connection(), kMainFormCaption);
  const Stopwatch since_key;
  PressKey(display, window);
  WaitUntil("the window's end", [&] { return display.Centre() == kBareScreen; });
  times.gone = since_key.Milliseconds();
  WaitUntil("the program's end", [&] { return program.HasEnded(); });
  times.ended = since_key.Milliseconds();
  return times;
}

void ReportStart(Bench& bench, const char* label, const std::function<void()>& moment) {
  std::vector<double> mapped;
  std::vector<double> shown;
  std::vector<double> gone;
  std::vector<double> ended;
  for (int round = bench.quick ? 3 : 9; round > 0; --round) {
    const StartTimes times = StartAndEnd(bench, moment);
    mapped.push_back(times.mapped);
    shown.push_back(times.shown);
    gone.push_back(times.gone);
    ended.push_back(times.ended);
  }
  bench.report.Row(label, {Median(mapped), Median(shown), Median(gone), Median(ended)});
}

// The peak comes when the second picture is loaded while the first is still held.
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
  std::this_thread::sleep_for(std::chrono::seconds(1));  // for the first tick
  return PeakMegabytes(program.Pid());
}

constexpr int kPictures = 14;  // more than are shown in a minute, so that none comes twice
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
             int seconds, const std::string& further = "") {
  ShowStore().Set({.pictures = pictures, .effect = effect, .stretch = stretch, .interval = kInterval});
  RunShow(bench, "quorvale, " + effect + (stretch ? "" : ", natural size") + further, {BuiltProgram("quorvale"), "/S"},
          seconds);
}

std::vector<std::string> OtherViewer(const std::vector<std::string>& pictures) {
  std::vector<std::string> command = {"feh", "-F", "-Z", "-q", "-Y", "-D", std::to_string(kInterval)};
  command.insert(command.end(), pictures.begin(), pictures.end());
  return command;
}

void RunXrandr(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "xrandr");
  ChildProgram program(std::move(arguments));
  WaitUntil("xrandr", [&] { return program.HasEnded(); });
}

// Two monitors, each half of the screen.
class TwoMonitors {
 public:
  explicit TwoMonitors(const xcb_screen_t& screen) {
    const std::string half = std::to_string(screen.width_in_pixels / 2);
    const std::string size = half + "/300x" + std::to_string(screen.height_in_pixels) + "/300+";
    RunXrandr({"--setmonitor", "*Left", size + "0+0", "screen"});
    RunXrandr({"--setmonitor", "Right", size + half + "+0", "none"});
  }
  ~TwoMonitors() {
    for (const char* const name : {"Left", "Right"}) RunXrandr({"--delmonitor", name});
  }
  TwoMonitors(const TwoMonitors&) = delete;
  TwoMonitors& operator=(const TwoMonitors&) = delete;
};

void MeasureMonitors(Bench& bench, const std::vector<std::string>& pictures, int seconds) {
  const TwoMonitors monitors(bench.display.Screen());
  bench.report.Begin("The same on two monitors", {{"CPU s", 2}, {"X CPU s", 2}, {"peak MB", 0}});
  for (const char* const value : kMonitorChoices) {
    ShowStore().SetOption("Monitors", value);
    RunOurs(bench, "None", true, pictures, seconds, std::string(", ") + value);
  }
  ShowStore().SetOption("Monitors", kMonitorChoices[0]);
}

// What the program does between two ticks.
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

void MeasureStart(Bench& bench) {
  WatchForWindows(bench.display);
  bench.report.Begin("From the start to the window, and from the ending key to its end, ms",
                     {{"mapped"}, {"painted"}, {"gone"}, {"ended"}});
  const std::vector<std::string> pictures = TestPictures(kCameraSize, 2);
  ShowStore().Set({.pictures = pictures});
  ReportStart(bench, "key between two ticks", [&] {
    WaitForPicture(bench.display);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  });
  ShowStore().Set({.pictures = pictures, .effect = "Spotlight", .interval = 1, .speed = 1});
  ReportStart(bench, "key in mid-effect, speed 1", [&] {
    WaitForPicture(bench.display);
    WaitUntil("the effect", [&] { return ShowsBackground(bench.display); });
  });
}

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
  MeasureMonitors(bench, pictures, seconds);
  MeasureIdle(bench);
}

}  // namespace quorvale
