#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

#include "base/failure.h"
#include "desktop/pictures/samples.h"
#include "toolkit/picture.h"

namespace quorvale {
namespace {

// The header of a bitmap file that claims a size.
Bytes BitmapHead(std::int32_t width, std::int32_t height) {
  Bytes bytes = MakeImage(MakeWaves(8, 8), "BMP");
  for (std::size_t i = 0; i < 4; ++i) {
    bytes[18 + i] = static_cast<std::uint8_t>(width >> 8 * i);
    bytes[22 + i] = static_cast<std::uint8_t>(height >> 8 * i);
  }
  return bytes;
}

// A GIF of 31 bytes, no colours and a few codes, that claims a size of its screen and its frame.
Bytes GifHead(std::uint8_t screen, std::uint8_t frame) {
  return {'G', 'I', 'F', '8',   '9', 'a',   0, screen, 0, screen, 0,    0,    0,    ',', 0,  0,
          0,   0,   0,   frame, 0,   frame, 0, 2,      4, 0x84,   0x8F, 0xA9, 0xCB, 0,   ';'};
}

// A photo that claims a size, in one scan or several.
Bytes JpegHead(int width, int height, bool progressive) {
  Bytes bytes = MakeJpeg(MakeWaves(8, 8), {.name = "", .progressive = progressive});
  const std::uint8_t marker[] = {0xFF, static_cast<std::uint8_t>(progressive ? 0xC2 : 0xC0)};
  auto frame = std::search(bytes.begin(), bytes.end(), std::begin(marker), std::end(marker));
  frame[5] = static_cast<std::uint8_t>(height >> 8);
  frame[6] = static_cast<std::uint8_t>(height);
  frame[7] = static_cast<std::uint8_t>(width >> 8);
  frame[8] = static_cast<std::uint8_t>(width);
  return bytes;
}

constexpr std::uint8_t kScan[] = {0xFF, 0xDA};

// A photo down to where its pixels begin.
Bytes JpegWithoutPixels() {
  const Bytes good = MakeJpeg(MakeWaves(64, 64), {.name = ""});
  const auto scan = std::search(good.begin(), good.end(), std::begin(kScan), std::end(kScan));
  return {good.begin(), scan + 2 + (scan[2] << 8 | scan[3])};
}

// A progressive photo whose last scan comes 200 times.
Bytes JpegOfEndlessScans() {
  Bytes bytes = MakeJpeg(MakeNoise(64, 64), {.name = "", .progressive = true});
  bytes.resize(bytes.size() - 2);
  const Bytes scan(std::find_end(bytes.begin(), bytes.end(), std::begin(kScan), std::end(kScan)), bytes.end());
  for (int i = 0; i < 200; ++i) bytes.insert(bytes.end(), scan.begin(), scan.end());
  return bytes;
}

TEST(PictureLoader, FailsOnWhatIsNoPicture) {
  const TemporaryDirectory folder;
  std::filesystem::create_directory(folder.Path("directory.jpg"));
  mkfifo(folder.Path("pipe.jpg").c_str(), 0600);
  std::filesystem::create_symlink("loop.jpg", folder.Path("loop.jpg"));
  WritePicture(folder, "plain.jpg", MakeJpeg(MakeWaves(8, 8), {.name = ""}));
  Bytes ended = JpegWithoutPixels();
  ended.insert(ended.end(), {0xFF, 0xD9});
  const auto with_null = folder.Path("plain.jpg") + '\0' + ".jpg";
  using enum FailureNumber;
  const struct {
    std::string path;
    FailureNumber number;
  } cases[] = {
      {folder.Path("missing.jpg"), kNotFound},
      {folder.Path("plain.jpg/inside.jpg"), kNotFound},
      {"", kNotFound},
      {with_null, kNotFound},
      {folder.Path("directory.jpg"), kUnreadable},
      {folder.Path("pipe.jpg"), kUnreadable},
      {folder.Path("loop.jpg"), kUnreadable},
      {"/dev/zero", kUnreadable},
      {WritePicture(folder, "empty.jpg", {}), kBadPicture},
      {WritePicture(folder, "text.jpg", {'h', 'e', 'l', 'l', 'o', '\n'}), kBadPicture},
      {WritePicture(folder, "start.jpg", {0xFF, 0xD8, 0xFF}), kBadPicture},
      {WritePicture(folder, "placeable.wmf", {0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 0, 0, 0, 0, 64, 0, 64, 0}), kBadPicture},
      {WritePicture(folder, "giant.bmp", BitmapHead(60'000, 60'000)), kBadPicture},
      {WritePicture(folder, "upside.bmp", BitmapHead(30'000, -30'000)), kBadPicture},
      {WritePicture(folder, "hollow.bmp", BitmapHead(8'000, 8'000)), kBadPicture},
      {WritePicture(folder, "screen.gif", GifHead(250, 1)), kBadPicture},
      {WritePicture(folder, "frame.gif", GifHead(1, 250)), kBadPicture},
      {WritePicture(folder, "empty.gif", GifHead(1, 0)), kBadPicture},
      {WritePicture(folder, "giant.jpg", JpegHead(65'500, 65'500, false)), kBadPicture},
      {WritePicture(folder, "giant2.jpg", JpegHead(65'500, 65'500, true)), kBadPicture},
      {WritePicture(folder, "gigapixel.jpg", JpegHead(40'000, 25'000, false)), kBadPicture},
      {WritePicture(folder, "header.jpg", JpegWithoutPixels()), kBadPicture},
      {WritePicture(folder, "ended.jpg", ended), kBadPicture},
      {WritePicture(folder, "scans.jpg", JpegOfEndlessScans()), kBadPicture},
  };
  for (const auto& test : cases) EXPECT_EQ(LoadFailure(test.path), test.number) << test.path;
}

TEST(PictureLoader, RecognisesContentWhateverTheName) {
  const TemporaryDirectory folder;
  const QImage waves = MakeWaves(40, 30);
  const std::pair<std::string, Bytes> files[] = {
      {"jpeg.bmp", MakeJpeg(waves, {.name = ""})},
      {"bmp.jpg", MakeImage(waves, "BMP")},
      {"png.gif", MakeImage(waves, "PNG")},
      {"name with\nnew line, \xC3\xA4 and \xFF", MakeImage(waves, "BMP")},
  };
  for (const auto& [name, bytes] : files) {
    Screen screen(40, 30);
    const auto picture = Show(WritePicture(folder, name, bytes), screen.Bounds(), screen);
    EXPECT_LE(Difference(screen, screen.Bounds(), screen.Bounds(), waves), 8) << name;
    EXPECT_EQ(picture->NaturalSize(2).width, 40 * kTwipsPerPixel / 2);
  }
}

// Whoever adds a format adds a seed for the fuzzers, and its endings to the help.
TEST(PictureLoader, EveryFormatHasASeedAndAHelpEntry) {
  std::ifstream page(QUORVALE_HELP "/formats.html");
  const std::string help(std::istreambuf_iterator<char>(page), {});
  for (const PictureFormat& format : kPictureFormats) {
    std::istringstream patterns{std::string(format.patterns)};
    bool has_seed = false;
    for (std::string pattern; std::getline(patterns, pattern, ';');) {
      const std::string ending = pattern.substr(1);
      EXPECT_NE(help.find("<code>" + ending + "</code>"), std::string::npos) << pattern;
      for (const char* folder : {QUORVALE_SEEDS "/picture", QUORVALE_METAFILES}) {
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
          has_seed = has_seed || (file.path().extension() == ending && !LoadFailure(file.path()));
        }
      }
    }
    EXPECT_TRUE(has_seed) << format.name;
  }
}

TEST(PictureLoader, ADeletedFileIsDecodedForANewBox) {
  const TemporaryDirectory folder;
  // Small ones are held, large ones stay open.
  for (const QSize size : {QSize(300, 200), QSize(3000, 2000)}) {
    const QImage noise = MakeNoise(size.width(), size.height());
    const Bytes bytes = MakeJpeg(noise, {.name = ""});
    const QImage whole = Decode(bytes);
    const std::string path = WritePicture(folder, "kept.jpg", bytes);
    Screen screen(60, 50);
    const auto picture = Show(path, {0, 0, 20, 10}, screen);
    std::filesystem::remove(path);
    for (const PixelRect box :
         {PixelRect{0, 0, size.width(), size.height()}, {-30, -40, size.width(), size.height()}}) {
      // A repaint asks for a piece first.
      picture->Paint(screen.View(), box, {10, 10, 5, 5});
      picture->Paint(screen.View(), box, screen.Bounds());
      EXPECT_EQ(Difference(screen, screen.Bounds(), box, whole), 0) << size.width();
    }
  }
}

TEST(PictureLoader, DamageAfterLoadingPaintsNothing) {
  const TemporaryDirectory folder;
  const std::string path = WritePicture(folder, "large.jpg", MakeJpeg(MakeNoise(3000, 2000), {.name = ""}));
  Screen screen(60, 50);
  const auto picture = Show(path, {0, 0, 20, 10}, screen);
  std::filesystem::resize_file(path, 0);
  Screen untouched(60, 50);
  picture->Paint(untouched.View(), {0, 0, 60, 50}, untouched.Bounds());
  EXPECT_EQ(untouched.pixels, Screen(60, 50).pixels);
}

TEST(PictureLoader, LetsEventsArriveDuringALargePicture) {
  const TemporaryDirectory folder;
  QImage image(9000, 9000, QImage::Format_Grayscale8);
  image.fill(0);
  PicturePlace place = PlaceAt({0, 0, 40, 30}, {0, 0, 40, 30});
  int passes = 0;
  place.while_waiting = [&] { ++passes; };
  const auto memory = std::make_shared<UsedMemory>();
  place.memory = memory;
  const auto picture = DesktopPictureLoader().Load(WritePicture(folder, "large.png", MakeImage(image, "png")), place);
  EXPECT_GT(passes, 0);
  EXPECT_EQ(picture->Covering({40, 30}, {0, 0, 40, 30}), memory->taken);
  EXPECT_EQ(memory->taken[40 * 30 - 1], 0xFF000000);
}

TEST(PictureLoader, FailsOnDamageOutOfView) {
  const TemporaryDirectory folder;
  // A small frame on a canvas of 30,000 pixels in either direction.
  Bytes canvas = ReadBytes(QUORVALE_SEEDS "/picture/moving.webp");
  canvas[25] = canvas[28] = 30'000 >> 8;
  const Bytes good = MakeJpeg(MakeWaves(64, 64), {.name = ""});
  const std::string whole = WritePicture(folder, "whole.jpg", good);
  for (const PixelRect box : {PixelRect{100, 100, 64, 64}, {0, 0, 0, 0}, {5, 5, 20, 0}}) {
    EXPECT_NO_THROW(DesktopPictureLoader().Load(whole, PlaceAt(box, {0, 0, 40, 30})));
    for (const Bytes& damaged : {First(good, 200), canvas}) {
      const std::string path = WritePicture(folder, "damaged", damaged);
      EXPECT_THROW(DesktopPictureLoader().Load(path, PlaceAt(box, {0, 0, 40, 30})), Failure);
    }
  }
}

}  // namespace
}  // namespace quorvale
