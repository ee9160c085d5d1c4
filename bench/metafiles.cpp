#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "bench_files.h"
#include "groups.h"
#include "measure.h"
#include "platform/desktop/metafile/record_types.h"
#include "platform/desktop/pictures/picture_loader.h"

namespace quorvale {
namespace {

using enum metafile::WmfRecordType;

constexpr int kRecords = 10'000;
// Of the window, in logical units.
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
