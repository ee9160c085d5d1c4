#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "bench_files.h"
#include "child_program.h"
#include "groups.h"
#include "measure.h"
#include "platform/desktop/system/x11_windows.h"
#include "saver/main_form.h"
#include "screen_states.h"
#include "show_settings.h"
#include "test_picture.h"

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

}  // namespace quorvale
