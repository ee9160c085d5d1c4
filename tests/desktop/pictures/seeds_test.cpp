// The seeds of the fuzzer: one small picture, stored in every way there is.

#include <gtest/gtest.h>

#include <QColorSpace>
#include <QTransform>
#include <chrono>
#include <filesystem>

#include "desktop/pictures/samples.h"
#include "platform/headless/headless_desktop.h"
#include "process/process.h"
#include "saver/main_form.h"

namespace quorvale {
namespace {

constexpr int kWidth = 19;
constexpr int kHeight = 7;
constexpr PixelRect kBounds{0, 0, kWidth, kHeight};

std::string Seed(const std::string& name) { return std::string(QUORVALE_SEEDS) + "/picture/" + name; }

int IndexAt(int x, int y, int colours) { return (3 * x + 5 * y + x * y / 4) % colours; }
QRgb ColourOf(int index) { return qRgb(17 * index, 85 * index % 256, 255 - 17 * index); }

QImage SeedPicture(int colours) {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) image.setPixel(x, y, ColourOf(IndexAt(x, y, colours)));
  }
  return image;
}

TEST(PictureSeeds, ShowsEveryWayOfStoring) {
  const struct {
    std::string name;
    int colours = 16;
    int tolerance = 0;
  } cases[] = {
      {"1.bmp", 2},
      {"2.bmp", 4},
      {"4.bmp"},
      {"8.bmp"},
      {"8-down.bmp"},
      {"8-gap.bmp"},
      {"4-runs.bmp"},
      {"8-runs.bmp"},
      {.name = "16.bmp", .tolerance = 4},
      {.name = "16-masks.bmp", .tolerance = 4},
      {"24.bmp"},
      {"32.bmp"},
      {"32-masks.bmp"},
      {"32-ten.bmp"},
      {"core-1.bmp", 2},
      {"core-8.bmp"},
      {"core-24.bmp"},
      {"os2-4.bmp"},
      {"os2-short.bmp"},
      {"plain.gif"},
      {"interlaced.gif"},
      {"moving.gif"},
      {"plain.png"},
      {"plain.webp"},
      {"moving.webp"},
      {"plain.tif"},
      {"strips.tif"},
      {"tiles.tif"},
      {"16.tif"},
      {"plain.jxl"},
      {"16.jxl"},
      {.name = "plain.heic", .tolerance = 1},
      {.name = "10.heic", .tolerance = 2},
      {.name = "plain.avif", .tolerance = 1},
  };
  for (const auto& test : cases) {
    const QImage wanted = SeedPicture(test.colours);
    // All of it, and the part in view of a larger one.
    for (const PixelRect box : {kBounds, PixelRect{-5, -2, kWidth, kHeight}}) {
      Screen screen(kWidth - 3, kHeight - 1);
      Show(Seed(test.name), box, screen);
      EXPECT_LE(Difference(screen, Intersect(box, screen.Bounds()), box, wanted), test.tolerance) << test.name;
    }
  }
}

// A large file is read in pieces, whose borders may lie anywhere.
TEST(PictureSeeds, ReadsTheSameInPieces) {
  std::vector<std::string> paths;
  for (const auto& seed : std::filesystem::directory_iterator(Seed(""))) paths.push_back(seed.path());
  for (const char* metafile : {"/polygons.wmf", "/polygons.emf"})
    paths.push_back(QUORVALE_METAFILES + std::string(metafile));
  for (const std::string& path : paths) {
    Screen wanted(kWidth, kHeight);
    Show(path, kBounds, wanted);
    for (std::size_t piece = 1; piece < 30; ++piece) {
      Screen screen(kWidth, kHeight);
      Show(path, kBounds, screen, {.held_size = 0, .piece_size = piece});
      EXPECT_EQ(screen.pixels, wanted.pixels) << path << ", pieces of " << piece;
    }
  }
}

TEST(PictureSeeds, AGifShowsTheBackgroundAroundItsFrame) {
  Screen transparent(kWidth, kHeight);
  Show(Seed("transparent.gif"), kBounds, transparent);
  Screen inset(kWidth + 6, kHeight + 5);
  Show(Seed("inset.gif"), inset.Bounds(), inset);
  const Pixel background = Screen(1, 1).At(0, 0);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const int index = IndexAt(x, y, 16);
      EXPECT_EQ(transparent.At(x, y), index == 3 ? background : ColourOf(index)) << x << ", " << y;
      EXPECT_EQ(inset.At(x + 3, y + 2), ColourOf(index)) << x << ", " << y;
    }
  }
  EXPECT_EQ(inset.At(0, 0), background);
  EXPECT_EQ(inset.At(kWidth + 5, kHeight + 4), background);
}

TEST(PictureSeeds, BlendsABitmapWithAlpha) {
  Screen screen(kWidth, kHeight, 0xFF000000);
  Show(Seed("32-alpha.bmp"), kBounds, screen);
  const Pixel half = screen.At(0, 0);
  const QRgb colour = ColourOf(IndexAt(0, 0, 16));
  EXPECT_NEAR(qBlue(half), qBlue(colour) / 2.0, 1);
  EXPECT_EQ(screen.At(1, 0), 0xFF000000);
  EXPECT_EQ(screen.At(2, 0), ColourOf(IndexAt(2, 0, 16)));
}

// Colours of half the alpha.
TEST(PictureSeeds, BlendsEveryKindWithAlpha) {
  for (const auto& [name, tolerance] :
       {std::pair{"half.webp", 1}, {"half.tif", 2}, {"half.jxl", 1}, {"half.heic", 2}, {"half.avif", 2}}) {
    Screen screen(kWidth, kHeight, 0xFF000000);
    Show(Seed(name), kBounds, screen);
    QImage wanted = SeedPicture(16);
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        const QRgb colour = wanted.pixel(x, y);
        wanted.setPixel(x, y, qRgb(qRed(colour) / 2, qGreen(colour) / 2, qBlue(colour) / 2));
      }
    }
    EXPECT_LE(Difference(screen, kBounds, kBounds, wanted), tolerance) << name;
  }
}

TEST(PictureSeeds, TurnsAPictureOnce) {
  QTransform quarter;
  quarter.rotate(90);
  const QImage wanted = SeedPicture(16).transformed(quarter);
  for (const char* name : {"turned.webp", "turned.tif", "turned.jxl", "turned.heic"}) {
    Screen screen(kHeight, kWidth);
    EXPECT_EQ(Show(Seed(name), screen.Bounds(), screen)->NaturalSize(1).width, kHeight * kTwipsPerPixel) << name;
    EXPECT_LE(Difference(screen, screen.Bounds(), screen.Bounds(), wanted), 1) << name;
  }
}

TEST(PictureSeeds, TurnsAndMirrorsHeicAsItsPropertySays) {
  const TemporaryDirectory folder;
  Bytes bytes = ReadBytes(Seed("turned.heic"));
  constexpr std::string_view kRotation = "irot";
  const auto property = std::search(bytes.begin(), bytes.end(), kRotation.begin(), kRotation.end());
  ASSERT_NE(property, bytes.end());
  const auto rotated = [](int degrees) { return QTransform().rotate(degrees); };
  const std::tuple<std::string, int, QTransform> cases[] = {{"irot", 0, {}},
                                                            {"irot", 1, rotated(-90)},
                                                            {"irot", 2, rotated(180)},
                                                            {"irot", 3, rotated(90)},
                                                            {"imir", 1, QTransform::fromScale(-1, 1)}};
  for (const auto& [name, value, transform] : cases) {
    *std::ranges::copy(name, property).out = static_cast<std::uint8_t>(value);
    const QImage wanted = SeedPicture(16).transformed(transform);
    Screen screen(wanted.width(), wanted.height());
    Show(WritePicture(folder, "turned.heic", bytes), screen.Bounds(), screen);
    EXPECT_LE(Difference(screen, screen.Bounds(), screen.Bounds(), wanted), 1) << name << ' ' << value;
  }
}

// Primaries and transfer curve stand behind their name, in two bytes each. Qt's conversion is the reference.
TEST(PictureSeeds, ConvertsColoursThatAreGivenByNumbers) {
  const TemporaryDirectory folder;
  Bytes bytes = ReadBytes(Seed("plain.avif"));
  constexpr std::string_view kName = "nclx";
  const auto numbers = std::search(bytes.begin(), bytes.end(), kName.begin(), kName.end()) + 4;
  Screen stored(kWidth, kHeight);
  Show(Seed("plain.avif"), kBounds, stored);
  const QColorSpace wide({0.3127, 0.3290}, {0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046},
                         QColorSpace::TransferFunction::SRgb);
  const QColorSpace early({0.310, 0.316}, {0.67, 0.33}, {0.21, 0.71}, {0.14, 0.08},
                          QColorSpace::TransferFunction::Gamma, 2.2F);
  const std::tuple<int, int, QColorSpace> cases[] = {{1, 8, QColorSpace::SRgbLinear},
                                                     {12, 13, QColorSpace::DisplayP3},
                                                     {4, 4, early},
                                                     {9, 14, wide},
                                                     {9, 16, QColorSpace::SRgb},
                                                     {12, 18, QColorSpace::SRgb},
                                                     {3, 1, QColorSpace::SRgb}};
  for (const auto& [primaries, transfer, space] : cases) {
    numbers[1] = static_cast<std::uint8_t>(primaries);
    numbers[3] = static_cast<std::uint8_t>(transfer);
    QImage wanted(reinterpret_cast<const uchar*>(stored.pixels.data()), kWidth, kHeight, QImage::Format_RGB32);
    wanted.setColorSpace(space);
    wanted.convertToColorSpace(QColorSpace::SRgb);
    Screen screen(kWidth, kHeight);
    Show(WritePicture(folder, "numbers.avif", bytes), kBounds, screen);
    EXPECT_LE(Difference(screen, kBounds, kBounds, wanted), 2) << primaries << ' ' << transfer;
  }
}

// Light in proportion to the level. Whether there are colours stands in a bit behind a name; then it is ignored.
TEST(PictureSeeds, ConvertsGreysByAProfileForGreys) {
  const TemporaryDirectory folder;
  for (const auto& [seed, name, at, bit] :
       {std::tuple("grey.heic", std::string_view("hvcC"), 20, 1), {"grey.avif", "av1C", 6, 0x10}}) {
    Bytes bytes = ReadBytes(Seed(seed));
    for (const Pixel wanted : {0xFF636363, 0xFF202020}) {
      Screen screen(1, 1);
      Show(WritePicture(folder, seed, bytes), screen.Bounds(), screen);
      EXPECT_EQ(screen.At(0, 0), wanted) << seed;
      std::search(bytes.begin(), bytes.end(), name.begin(), name.end())[at] ^= static_cast<std::uint8_t>(bit);
    }
  }
}

// No damage takes more than one file: a failure, or as much of the picture as can be read.
TEST(PictureSeeds, DamagedFilesOfEveryKindEndQuickly) {
  const TemporaryDirectory folder;
  for (const char* name : {"plain.webp", "plain.tif", "tiles.tif", "plain.jxl", "plain.heic", "plain.avif"}) {
    const Bytes whole = ReadBytes(Seed(name));
    for (std::size_t i = 1; i < whole.size(); i += 1 + whole.size() / 60) {
      Bytes flipped = whole;
      flipped[i] ^= static_cast<std::uint8_t>(1U << i % 8);
      for (const Bytes& bytes : {First(whole, i), flipped}) {
        const auto start = std::chrono::steady_clock::now();
        LoadFailure(WritePicture(folder, "damaged", bytes));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << name << ' ' << i;
      }
    }
  }
}

// Of grey rows: strips of 16, the third of which lies beyond the end of the file, and one strip that is too large to be
// held, with runs for 32 of its rows.
TEST(PictureSeeds, ATiffIsSeenUpToItsFirstDamage) {
  const TemporaryDirectory folder;
  for (const auto& [width, height, compression, rows, length, data] :
       {std::tuple(8, 48, 1, 16, 128, 0x8080), {16384, 8000, 32773, 8000, 8192, 0x8081}}) {
    std::vector<int> words = {
        0x4949, 42, 8,   0, 9,                                                              //
        256,    3,  1,   0, width,       0, 257, 3, 1, 0, height, 0, 258, 3, 1, 0, 8,   0,  // depth
        259,    3,  1,   0, compression, 0, 262, 3, 1, 0, 1,      0, 273, 4, 3, 0, 122, 0,  // kind, offsets
        277,    3,  1,   0, 1,           0, 278, 3, 1, 0, rows,   0, 279, 4, 3, 0, 134, 0,  // samples, rows, lengths
        0,      0,  146, 0, 274,         0, 402, 0,                                         //
        length, 0,  128, 0, 128,         0};
    words.resize(words.size() + static_cast<std::size_t>(length), data);
    Bytes bytes;
    for (const int word : words)
      bytes.insert(bytes.end(), {static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 8U)});
    Screen screen(8, 48, 0xFF000000);
    Show(WritePicture(folder, "short.tif", bytes), {0, 0, width, height}, screen);
    EXPECT_EQ(screen.At(7, 31) & 0xFFFFFF, 0x808080U) << width;
    EXPECT_EQ(screen.At(0, 32) & 0xFFFFFF, 0U) << width;
  }
}

// A jump over two rows and the rest of a third, and an end before the last rows.
TEST(PictureSeeds, RunsLeaveOutTheFirstColour) {
  Screen screen(kWidth, kHeight);
  Show(Seed("8-jump.bmp"), kBounds, screen);
  QImage wanted(kWidth, kHeight, QImage::Format_RGB32);
  wanted.fill(ColourOf(0));
  for (int x = 0; x < 3; ++x) wanted.setPixel(x, kHeight - 1, ColourOf(1));
  for (int x = 7; x < 9; ++x) wanted.setPixel(x, kHeight - 4, ColourOf(2));
  EXPECT_EQ(Difference(screen, kBounds, kBounds, wanted), 0);
}

// A desktop in memory that reads pictures as the real one does.
class DesktopWithPictures : public HeadlessDesktop {
 public:
  PictureLoader& Pictures() override { return loader_; }

 private:
  DesktopPictureLoader loader_;
};

TEST(PictureSeeds, ABadPictureIsSkipped) {
  const TemporaryDirectory folder;
  QImage red(200, 100, QImage::Format_RGB32);
  red.fill(qRgb(255, 0, 0));
  const std::string good = WritePicture(folder, "good", MakeImage(red, "BMP"));
  Collection list;
  for (const auto& seed : std::filesystem::directory_iterator(Seed(""))) {
    const std::string name = seed.path().filename();
    list.Add(WritePicture(folder, name, First(ReadBytes(seed.path()), 20)));
    list.Add(good);
  }
  for (const char* stretch : {"0", "1"}) {
    DesktopWithPictures desktop;
    Process process(desktop, desktop.Services());
    process.mode = RunMode::kShow;
    process.options.Set("SwapAffect", "None");
    process.options.Set("Stretch", stretch);
    const auto form = std::make_shared<MainForm>(process);
    form->Show();
    process.show.picture_list = list;
    for (std::int32_t i = 1; i <= list.Count(); ++i) {
      const Surface& surface = form->PicBase.Pixels();
      const Pixel before = surface.At(400, 300);
      desktop.queue.Advance(i == 1 ? 500 : form->tmrSwitch.Interval());
      EXPECT_EQ(process.options.Get("LastPicture", ""), std::to_string(i));
      EXPECT_EQ(surface.At(400, 300), i % 2 != 0 ? before : 0xFFFF0000) << list.Item(i);
    }
  }
}

}  // namespace
}  // namespace quorvale
