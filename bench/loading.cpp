// Loading pictures and showing them: photographs beside the yardstick, and metafiles.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "bench_files.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "platform/desktop/metafile/record_types.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "yardstick/yardstick.h"

namespace quorvale {
namespace {

constexpr int kPixelsToLoad = 100'000'000;  // for each figure

// Short measurements scatter more, and can be repeated more often.
int RoundsFor(const Bench& bench, const PictureSize& size) {
  return bench.quick ? 3 : std::clamp(kPixelsToLoad / (size.width * size.height), 9, 31);
}

class LoadingRow {
 public:
  LoadingRow(Bench& bench, LiveShow& show, SharedWindow& window, std::string path)
      : bench_(bench), show_(show), window_(window), path_(std::move(path)) {
    show_.Core().show.picture_list = Collection({path_});
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

  // Stretched, and in the picture's proportions.
  std::vector<double> MeasureScaling(int rounds) {
    const std::vector<double> t = AlternatingMedians(rounds, {
                                                                 [&] { return Ours("1"); },
                                                                 [&] { return Scaled("Fit", "0"); },
                                                                 [&] { return Scaled("Fill", "0"); },
                                                                 [&] { return Scaled("Fit", "1"); },
                                                             });
    return {t[0], t[1], t[2], t[3], t[1] / t[0], t[2] / t[0], t[3] / t[1]};
  }

 private:
  // In a show the slides before are of the same kind, and the last but one leaves its memory to the next.
  double TickAmongOthers() {
    show_.Tick();
    show_.Tick();
    return show_.Tick();
  }

  double Scaled(const char* scaling, const char* backdrop) {
    show_.Core().options.Set("Scaling", scaling);
    show_.Core().options.Set("FitBackdrop", backdrop);
    const double milliseconds = TickAmongOthers();
    show_.Core().options.Set("Scaling", "");
    return milliseconds;
  }

  double Ours(const char* stretch) {
    show_.Core().options.Set("Stretch", stretch);
    return TickAmongOthers();
  }

  double Yardstick(Fit fit) {
    window_.SetVisible(true);
    const double milliseconds = MillisecondsOf([&] { ShowByYardstick(path_, fit, window_); });
    window_.SetVisible(false);
    // The first reads the event that the show is seen again, the second answers it.
    show_.Present();
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

using enum metafile::WmfRecordType;

constexpr int kRecords = 10'000;
// The side of the window, in logical units.
constexpr int kSide = 10'000;

// A WMF file with its size in the header.
class WmfFile {
 public:
  WmfFile() { Write({0xCDD7, 0x9AC6, 0, 0, 0, kSide, kSide, 1440, 0, 0, 0, 1, 9, 0x300, 0, 0, 0, 0, 0, 0}); }

  void Record(int type, std::initializer_list<int> parameters) {
    Write({static_cast<int>(parameters.size()) + 3, 0, type});
    Write(parameters);
  }

  std::string Save(const std::string& name) {
    Record(META_EOF, {});
    std::string path = BenchDirectory("metafiles") + "/" + name + ".wmf";
    std::ofstream(path, std::ios::binary).write(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
    return path;
  }

 private:
  void Write(std::initializer_list<int> words) {
    for (const int word : words) {
      bytes_.push_back(static_cast<char>(word & 0xFF));
      bytes_.push_back(static_cast<char>(word >> 8 & 0xFF));
    }
  }

  std::vector<char> bytes_;
};

using Draw = std::function<void(WmfFile& file, int x, int y)>;

std::string MakeFile(const std::string& name, const Draw& draw) {
  WmfFile file;
  file.Record(META_CREATEBRUSHINDIRECT, {0, 0x80FF, 0x0040, 0});  // a brush, an area's colour
  file.Record(META_SELECTOBJECT, {0});
  for (int i = 0; i < kRecords; ++i) draw(file, i * 7919 % (kSide - 600), i * 104'729 % (kSide - 600));
  return file.Save(name);
}

void Polygon(WmfFile& file, int x, int y) {
  file.Record(META_POLYGON, {5, x, y, x + 500, y + 80, x + 420, y + 400, x + 200, y + 560, x + 30, y + 300});
}
void Line(WmfFile& file, int x, int y) { file.Record(META_LINETO, {y, x}); }
void Ellipse(WmfFile& file, int x, int y) { file.Record(META_ELLIPSE, {y + 400, x + 600, y, x}); }
// "Quorvale"
void Text(WmfFile& file, int x, int y) { file.Record(META_TEXTOUT, {8, 0x7551, 0x726F, 0x6176, 0x656C, y, x}); }
// Inverts the background, so that the file is played twice, on black and on white.
void Invert(WmfFile& file, int x, int y) { file.Record(META_PATBLT, {0x0009, 0x0055, 300, 300, y, x}); }

double MillisecondsToShow(const std::string& path, int width, int height) {
  const PixelRect box{0, 0, width, height};
  std::vector<Pixel> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFF000000U);
  return MillisecondsOf([&] {
    const auto picture = DesktopPictureLoader().Load(
        path, {.box = [&](const TwipSize& /*natural*/) { return box; }, .clip = box, .scale = 1});
    picture->Paint({pixels.data(), width, height, width}, box, box);
  });
}

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
    LoadingRow row(bench, show, window, TestPicture(size, 0));
    bench.report.Row(size.name, row.Measure(size, RoundsFor(bench, size)));
  }
  Report::Remark("on, off: Stretch. yard: the least a program must do, to the same box; yard in: in the picture's");
  Report::Remark("proportions. decode/n: the library alone at the yardstick's scale; decode: in full. Medians.");
  bench.report.Begin(
      "The same in the picture's proportions, ms",
      {{"stretch"}, {"fit"}, {"fill"}, {"backdrop"}, {"fit:stretch", 2}, {"fill:stretch", 2}, {"backdrop:fit", 2}});
  for (const PictureSize& size : kTestSizes) {
    LoadingRow row(bench, show, window, TestPicture(size, 0));
    bench.report.Row(size.name, row.MeasureScaling(RoundsFor(bench, size)));
  }
}

void MeasureMetafiles(Bench& bench) {
  bench.report.Begin("A metafile of 10,000 records, loaded and painted, ms", {{"640x480"}, {"1920x1080"}});
  const struct {
    const char* name;
    Draw draw;
  } kinds[] = {{"polygons", Polygon}, {"lines", Line}, {"ellipses", Ellipse}, {"texts", Text}, {"inversions", Invert}};
  for (const auto& kind : kinds) {
    const std::string path = MakeFile(kind.name, kind.draw);
    bench.report.Row(kind.name,
                     AlternatingMedians(bench.quick ? 3 : 9, {
                                                                 [&] { return MillisecondsToShow(path, 640, 480); },
                                                                 [&] { return MillisecondsToShow(path, 1920, 1080); },
                                                             }));
  }
  Report::Remark("Playing stops after two seconds; what was drawn by then is the picture.");
}

}  // namespace quorvale
