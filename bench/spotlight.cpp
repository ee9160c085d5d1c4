#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "effect_cost.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "screen_states.h"
#include "show_settings.h"
#include "test_picture.h"

namespace quorvale {
namespace {

// Spotlight's geometry: its radius grows by this until it is that part of the width, and the pen adds to it.
constexpr int kStep = 2;  // pixels
constexpr double kReach = 0.7;
constexpr double kHalfPen = 2.5;

// Fills the same pixels as Spotlight, in memory and with no question asked.
class FilledRings {
 public:
  explicit FilledRings(const PixelRect& screen)
      : width_(screen.width), height_(screen.height), pixels_(static_cast<std::size_t>(width_) * height_) {}

  int Count() const { return static_cast<int>(width_ * kReach) / kStep + 1; }

  // All of the disc, for each ring.
  void FillDiscs() {
    for (int ring = 0; ring < Count(); ++ring) {
      for (int y = 0; y < height_; ++y) Fill(y, Left(ring, y), width_ - Left(ring, y));
    }
  }

  // What each ring adds to the one before.
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
  // Where the ring begins in that row; the middle where it does not reach it.
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
