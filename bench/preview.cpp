#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "bench_files.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "processes.h"
#include "yardstick/yardstick.h"

namespace quorvale {
namespace {

// The size that settings dialogs give to a preview.
constexpr int kWidth = 152;
constexpr int kHeight = 112;

// A window in the middle of the screen that belongs to another client than the preview.
class HostWindow {
 public:
  explicit HostWindow(XDisplay& display) : display_(display), window_(xcb_generate_id(display.Connection())) {
    constexpr std::array<std::uint32_t, 1> kUnmanaged{1};
    xcb_create_window(display.Connection(), XCB_COPY_FROM_PARENT, window_, display.Screen().root,
                      static_cast<std::int16_t>((display.Width() - kWidth) / 2),
                      static_cast<std::int16_t>((display.Height() - kHeight) / 2), kWidth, kHeight, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, kUnmanaged.data());
    xcb_map_window(display.Connection(), window_);
    RoundTrip(display.Connection());
  }
  ~HostWindow() {
    xcb_destroy_window(display_.Connection(), window_);
    RoundTrip(display_.Connection());
  }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  xcb_window_t Id() const { return window_; }

 private:
  XDisplay& display_;
  xcb_window_t window_;
};

// The peak comes when the second picture is loaded while the first is still held.
double PeakOfPreview(Bench& bench, const std::string& picture) {
  const HostWindow host(bench.display);
  ShowStore store;
  store.Set({.pictures = {picture, picture}, .interval = 1});
  const ChildProgram program({BuiltProgram("quorvale"), "/P", std::to_string(host.Id())});
  WaitUntil("the second picture", [&] { return store.PicturesShown() == 2; });
  return PeakMegabytes(program.Pid());
}

std::vector<double> TimesOfTicks(Bench& bench, const PictureSize& size, const std::string& picture, int rounds) {
  const HostWindow host(bench.display);
  ShowStore().Set({});
  LiveShow show(bench.display, {}, host.Id());
  show.Core().show.picture_list = Collection({picture});
  const auto tick = [&](const char* stretch) {
    show.Core().options.Set("Stretch", stretch);
    return show.Tick();
  };
  const int divisor = NearestDivisor(size.width, size.height, kWidth, kHeight);
  return AlternatingMedians(rounds, {
                                        [&] { return tick("1"); },
                                        [&] { return tick("0"); },
                                        [&] { return MillisecondsOf([&] { DecodeOnly(picture, divisor); }); },
                                    });
}

}  // namespace

void MeasurePreview(Bench& bench) {
  constexpr int kPixelsToLoad = 200'000'000;  // for each figure
  bench.report.Begin("The preview in 152 by 112 pixels: a tick with the effect None in ms, and the program's peak",
                     {{"on"}, {"off"}, {"decode/n"}, {"on:decode/n", 2}, {"off:decode/n", 2}, {"peak MB", 0}});
  for (const PictureSize& size : kTestSizes) {
    const std::string picture = TestPicture(size, 0);
    const int rounds = bench.quick ? 3 : std::clamp(kPixelsToLoad / (size.width * size.height), 7, 31);
    const std::vector<double> t = TimesOfTicks(bench, size, picture, rounds);
    bench.report.Row(size.name, {t[0], t[1], t[2], t[0] / t[2], t[1] / t[2], PeakOfPreview(bench, picture)});
  }
  Report::Remark("on, off: Stretch. decode/n: the library alone at the nearest scale that fills the host. Medians.");
}

}  // namespace quorvale
