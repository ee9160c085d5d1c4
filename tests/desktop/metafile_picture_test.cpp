#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "base/failure.h"
#include "desktop/pictures/samples.h"
#include "platform/desktop/metafile/record_types.h"

namespace quorvale {
namespace {

using enum metafile::WmfRecordType;

constexpr std::size_t kPlaceableHeader = 22;

Bytes ReadSample(const std::string& name) { return ReadBytes(QUORVALE_METAFILES "/" + name); }

Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

Bytes Words(std::initializer_list<int> words) {
  Bytes bytes;
  for (const int word : words)
    bytes = bytes + Bytes{static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 8)};
  return bytes;
}

// A file without META_PLACEABLE: its header, records, and the end.
const Bytes kWmfHeader = Words({1, 9, 0x300, 0, 0, 0, 0, 0, 0});
const Bytes kWmfEnd = Words({3, 0, META_EOF});
const Bytes kWmfBox = Words({7, 0, META_RECTANGLE, 60, 40, 20, 10});  // from 10, 20 to 40, 60
Bytes WmfWindow(int width, int height) { return Words({5, 0, META_SETWINDOWEXT, height, width}); }
Bytes WmfMapMode(int mode) { return Words({4, 0, META_SETMAPMODE, mode}); }

Bytes Placeable(int right, int bottom, int units_to_inch) {
  return Words({0xCDD7, 0x9AC6, 0, 0, 0, right, bottom, units_to_inch, 0, 0, 0});
}

TEST(MetafilePicture, SizeComesFromTheHeaderTheWindowOrWhatIsDrawn) {
  const TemporaryDirectory folder;
  const std::tuple<const char*, Bytes, TwipSize> cases[] = {
      {"placeable", Placeable(200, 100, 100) + kWmfHeader + kWmfBox + kWmfEnd, {2880, 1440}},
      {"placeable, no unit", Placeable(1440, 720, 0) + kWmfHeader + kWmfBox + kWmfEnd, {1440, 720}},
      {"placeable, upside down",
       Placeable(200, -100, 100) + kWmfHeader + WmfWindow(60, 40) + kWmfBox + kWmfEnd,
       {2880, 1440}},
      {"placeable, empty", Placeable(0, 0, 100) + kWmfHeader + WmfWindow(60, 40) + kWmfBox + kWmfEnd, {900, 600}},
      {"window", kWmfHeader + WmfWindow(60, -40) + kWmfBox + kWmfEnd, {900, 600}},
      {"large window", kWmfHeader + WmfWindow(10'000, 5'000) + kWmfBox + kWmfEnd, {10'000, 5'000}},
      {"tenths of a millimetre", kWmfHeader + WmfMapMode(2) + WmfWindow(254, 508) + kWmfBox + kWmfEnd, {1440, 2880}},
      {"what is drawn", kWmfHeader + kWmfBox + kWmfEnd, {31 * 15, 41 * 15}},
      {"frame", ReadSample("boxes.emf"), {200 * 15, 150 * 15}},
  };
  for (const auto& [what, bytes, expected] : cases) {
    Screen screen(40, 30);
    const TwipSize size = Show(WritePicture(folder, "picture", bytes), screen.Bounds(), screen)->NaturalSize(2);
    EXPECT_NEAR(size.width, expected.width, 25) << what;
    EXPECT_NEAR(size.height, expected.height, 25) << what;
  }
}

TEST(MetafilePicture, FailsOnDamageBeforeTheFirstDrawing) {
  const TemporaryDirectory folder;
  const std::optional<FailureNumber> good;
  const auto bad = FailureNumber::kBadPicture;
  const Bytes wmf = ReadSample("boxes.wmf");
  const Bytes emf = ReadSample("boxes.emf");
  // Each begins by making and selecting a pen and a brush.
  const std::size_t wmf_drawn = kPlaceableHeader + 18 + 16 + 8 + 14 + 8 + 14;
  const std::size_t emf_drawn = 108 + 28 + 12 + 24 + 12 + 24;
  Bytes no_device = emf;
  std::fill_n(no_device.begin() + 72, 16, 0);
  const std::tuple<const char*, Bytes, std::optional<FailureNumber>> cases[] = {
      {"whole", wmf, good},
      {"whole", emf, good},
      {"nothing drawn, but ended", kWmfHeader + WmfWindow(60, 40) + kWmfEnd, good},
      {"after the first box", First(wmf, wmf_drawn), good},
      {"in the first box", First(wmf, wmf_drawn - 1), bad},
      {"after the first box", First(emf, emf_drawn), good},
      {"in the first box", First(emf, emf_drawn - 1), bad},
      {"in the header", First(wmf, kPlaceableHeader + 17), bad},
      {"in the header", First(emf, 87), bad},
      {"no device", no_device, bad},
  };
  for (const auto& [what, bytes, failure] : cases) {
    EXPECT_EQ(LoadFailure(WritePicture(folder, "picture", bytes)), failure) << what;
  }
}

TEST(MetafilePicture, IsDrawnAgainForAnotherBoxOrAnotherPart) {
  const std::string path = QUORVALE_METAFILES "/boxes.wmf";
  Screen small(200, 150);
  const auto picture = Show(path, small.Bounds(), small);
  Screen large(400, 300);
  Show(path, large.Bounds(), large);
  Screen again(400, 300);
  picture->Paint(Screen(400, 300).View(), again.Bounds(), {0, 0, 50, 50});
  picture->Paint(again.View(), again.Bounds(), again.Bounds());
  EXPECT_EQ(again.pixels, large.pixels);
  // Part of a picture has the same pixels as in the whole, and the background shows where nothing is drawn.
  Screen part(100, 80);
  Show(path, {-120, -70, 400, 300}, part);
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 100; ++x) ASSERT_EQ(part.At(x, y), large.At(x + 120, y + 70)) << x << ' ' << y;
  }
  EXPECT_EQ(large.At(1, 1), Screen(1, 1).At(0, 0));
}

TEST(MetafilePicture, InvertsAnyBackground) {
  const TemporaryDirectory folder;
  // Inverts the target from 10, 20 to 40, 60.
  const Bytes invert = Words({9, 0, META_PATBLT, 0x0009, 0x0055, 40, 30, 20, 10});
  const std::string path = WritePicture(folder, "p", Placeable(100, 100, 96) + kWmfHeader + invert + kWmfEnd);
  for (const Pixel ground : {0xFF000000U, 0xFFFFFFFFU, 0xFF204060U}) {
    Screen screen(100, 100, ground);
    Show(path, screen.Bounds(), screen);
    EXPECT_EQ(screen.At(5, 5), ground);
    EXPECT_EQ(screen.At(25, 40), ~ground | 0xFF000000U);
  }
}

// An arc of an empty box has no first point to draw a line to.
TEST(MetafilePicture, SkipsTheArcOfAnEmptyBox) {
  Screen screen(200, 150, 0xFFFFFFFF);
  Show(QUORVALE_METAFILES "/empty_arc.emf", screen.Bounds(), screen);
  EXPECT_NE(screen.At(15, 15), 0xFFFFFFFFU);
}

// Long and flat letters crash Qt's cache of letters.
TEST(MetafilePicture, DrawsLettersOfAnyLength) {
  const TemporaryDirectory folder;
  const Bytes text = Words({7, 0, META_TEXTOUT, 2, 0x5757, 0, 0});
  for (const int height : {100, 500, 1000, 8192}) {
    Screen screen(48, 32, 0xFFFFFFFF);
    Show(WritePicture(folder, "p", Placeable(1, height, 40) + kWmfHeader + text + kWmfEnd), screen.Bounds(), screen);
    EXPECT_EQ(screen.At(1, 31), 0xFFFFFFFF) << height;
  }
}

// So many runs in one row that the sum of their lengths overflows.
TEST(MetafilePicture, RunsStopAtTheEndOfTheRow) {
  const TemporaryDirectory folder;
  constexpr int kRuns = 10'000'000;
  constexpr std::size_t kWords = 3 + 11 + 20 + 2 + kRuns;
  const Bytes head =
      Words({kWords & 0xFFFF, kWords >> 16, META_STRETCHDIB, 0x0020, 0x00CC, 0, 4, 4, 0, 0, 75, 100, 0, 0});
  const Bytes info = Words({40, 0, 4, 0, 4, 0, 1, 8, 1, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0});
  const Bytes red = Words({0x0000, 0x00FF});
  Bytes runs(std::size_t{2} * kRuns);
  for (std::size_t i = 0; i < runs.size(); i += 2) runs[i] = 255;
  const std::string path =
      WritePicture(folder, "runs", Placeable(100, 75, 96) + kWmfHeader + head + info + red + runs + kWmfEnd);
  Screen screen(100, 75);
  Show(path, screen.Bounds(), screen);
  EXPECT_EQ(screen.At(50, 70), 0xFFFF0000U);
}

// Qt reads other memory where a mirrored image covers less than half of the canvas's first row or column.
TEST(MetafilePicture, DrawsMirroredImagesThatEndAtAnEdge) {
  const TemporaryDirectory folder;
  const Bytes red = Words({40, 0, 4, 0, 4, 0, 1, 8, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0x0000, 0x00FF});
  const auto stretch = [&](int width, int height, int x, int y) {
    return Words({44, 0, META_STRETCHDIB, 0x0020, 0x00CC, 0, 4, 4, 0, 0, height, width, y, x}) + red + Bytes(16);
  };
  for (int size = 5; size < 30; ++size) {
    const Bytes above = stretch(50, -size, 10, 1);
    const Bytes left = stretch(-size, 50, 1, 10);
    const Bytes inside = stretch(-20, -20, 80, 80);
    const Bytes file = Placeable(100, 100, 96) + kWmfHeader + above + left + inside + kWmfEnd;
    Screen screen(22, 22, 0xFFFFFFFF);  // drawn at twice its size, so that 0.44 of a row is left
    Show(WritePicture(folder, "p", file), screen.Bounds(), screen);
    EXPECT_EQ(screen.At(10, 10), 0xFFFFFFFFU) << size;
    EXPECT_EQ(screen.At(15, 15), 0xFFFF0000U) << size;
  }
}

TEST(MetafilePicture, StopsAfterTwoSeconds) {
  const TemporaryDirectory folder;
  Bytes bytes = Placeable(100, 100, 96) + kWmfHeader + kWmfBox;
  // Inverts the whole picture again and again.
  const Bytes invert = Words({9, 0, META_PATBLT, 0x0009, 0x0055, 100, 100, 0, 0});
  for (int i = 0; i < 100'000; ++i) bytes.insert(bytes.end(), invert.begin(), invert.end());
  const std::string path = WritePicture(folder, "long", bytes + kWmfEnd);
  Screen screen(1600, 1200);
  const auto start = std::chrono::steady_clock::now();
  Show(path, screen.Bounds(), screen);
  // Whole it takes minutes; a busy machine takes its time over the last record.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

}  // namespace
}  // namespace quorvale
