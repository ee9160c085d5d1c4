#include <algorithm>
#include <string>
#include <vector>

#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "show_settings.h"
#include "test_picture.h"
#include "yardstick/jpeg_rows.h"
#include "yardstick/yardstick.h"

namespace quorvale {
namespace {

constexpr int kPixelsToLoad = 100'000'000;  // for each figure

class LoadingRow {
 public:
  LoadingRow(Bench& bench, LiveShow& show, SharedWindow& window, std::string path)
      : bench_(bench), show_(show), window_(window), path_(std::move(path)) {
    show_.Core().show.PictureList = Collection({path_});
  }

  std::vector<double> Measure(const PictureSize& size, int rounds) {
    const int divisor = NearestDivisor(size.width, size.height, bench_.display.Width(), bench_.display.Height());
    const std::vector<double> t = AlternatingMedians(rounds, {
                                                                 [&] { return Ours("1"); },
                                                                 [&] { return Yardstick(Fit::kStretched); },
                                                                 [&] { return Ours("0"); },
                                                                 [&] { return Yardstick(Fit::kInside); },
                                                                 [&] { return Decode(divisor); },
                                                                 [&] { return Decode(1); },
                                                             });
    return {t[0], t[2], t[1], t[3], t[4], t[5], t[0] / t[1], t[0] / t[3], t[2] / t[3], t[0] / t[5], t[2] / t[5]};
  }

 private:
  double Ours(const char* stretch) {
    show_.Core().options.Set("Stretch", stretch);
    return show_.Tick();
  }

  double Yardstick(Fit fit) {
    window_.SetVisible(true);
    const double milliseconds = MillisecondsOf([&] { ShowByYardstick(path_, fit, window_); });
    window_.SetVisible(false);
    show_.Present();
    return milliseconds;
  }

  double Decode(int divisor) const {
    return MillisecondsOf([&] { DecodeOnly(path_, divisor); });
  }

  Bench& bench_;
  LiveShow& show_;
  SharedWindow& window_;
  std::string path_;
};

}  // namespace

void MeasureLoading(Bench& bench) {
  ShowStore().Set({});
  LiveShow show(bench.display);
  SharedWindow window(bench.display);
  bench.report.Begin("From the timer's event to the picture on the screen, effect None, ms", {{"on"},
                                                                                              {"off"},
                                                                                              {"yard"},
                                                                                              {"yard in"},
                                                                                              {"decode/n"},
                                                                                              {"decode"},
                                                                                              {"on:yard", 2},
                                                                                              {"on:yard in", 2},
                                                                                              {"off:yard in", 2},
                                                                                              {"on:decode", 2},
                                                                                              {"off:decode", 2}});
  for (const PictureSize& size : kTestSizes) {
    // What is over soon is disturbed more, and can be repeated more often.
    const int rounds = bench.quick ? 3 : std::clamp(kPixelsToLoad / (size.width * size.height), 9, 31);
    LoadingRow row(bench, show, window, TestPicture(size, 0));
    bench.report.Row(size.name, row.Measure(size, rounds));
  }
  Report::Remark("on, off: Stretch. yard: the least a program must do, to the same box; yard in: in the picture's");
  Report::Remark("proportions. decode/n: the library alone at the yardstick's scale; decode: in full. Medians.");
}

}  // namespace quorvale
