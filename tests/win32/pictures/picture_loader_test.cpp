#include "platform/win32/pictures/picture_loader.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "platform/win32/pictures/file_heads.h"
#include "platform/win32/pictures/metafile_picture.h"
#include "win32/pictures/picture_samples.h"
#include "win32/work_directory.h"

namespace quorvale {
namespace {

constexpr int kWidth = 64;
constexpr int kHeight = 48;

Pixel QuartersAt(int x, int y) { return Quarters(x, y, kWidth, kHeight); }
bool Nowhere(int /*x*/, int /*y*/) { return false; }
std::string MakeQuartersGif() { return MakeGif(kWidth, kHeight, {0, 0, kWidth, kHeight}, Nowhere); }

// Expects those colours in the middles of the quarters of `box`, row by row.
void ExpectQuarters(Screen& screen, const PixelRect& box, const std::array<int, 4>& quarters = {0, 1, 2, 3}) {
  for (int i = 0; i < 4; ++i) {
    const int x = box.left + box.width * (1 + i % 2 * 2) / 4;
    const int y = box.top + box.height * (1 + i / 2 * 2) / 4;
    if (x < 0 || y < 0 || x >= screen.width || y >= screen.height) continue;
    const int wanted = quarters[static_cast<std::size_t>(i)];
    EXPECT_LE(Difference(screen.At(x, y), Quarters(wanted % 2, wanted / 2, 2, 2)), 8) << "quarter " << i;
  }
}

class PictureLoaderTest : public testing::Test {
 protected:
  PictureLoaderTest() { screen_ = Screen(100, 80); }

  std::optional<FailureNumber> LoadFailure(const std::string& path) {
    try {
      Show(path, screen_.Bounds(), screen_);
    } catch (const Failure& failure) {
      return failure.Number();
    }
    return std::nullopt;
  }

  WorkDirectory directory_;
  Screen screen_{0, 0};
};

TEST_F(PictureLoaderTest, RecognisesContentAtAnySize) {
  const struct {
    const char* name;
    std::string bytes;
  } files[] = {{"bitmap.jpg", MakeBmp(kWidth, kHeight, QuartersAt)},
               {"photo.bmp", MakeJpeg(kWidth, kHeight, QuartersAt)},
               {"picture.wmf", MakeQuartersGif()},
               {"enhanced.gif", MakeEmf(kWidth, kHeight)},
               {"placeable.emf", MakePlaceableWmf(kWidth, kHeight, 96)},
               {"plain.bmp", MakePlainWmf(kWidth, kHeight)}};
  for (const auto& [name, bytes] : files) {
    SCOPED_TRACE(name);
    const std::string path = directory_.Write(name, bytes);
    for (const PixelRect box : {PixelRect{5, 7, kWidth, kHeight}, {10, 10, 21, 16}, {-60, -50, 200, 160}}) {
      SCOPED_TRACE(box.width);
      Screen screen(100, 80);
      const auto picture = Show(path, box, screen);
      ExpectQuarters(screen, box);
      EXPECT_EQ(screen.At(99, 79), box.left < 0 ? 0xFFFFFFFF : Screen::kBackground);
      const TwipSize size = picture->NaturalSize(1);
      EXPECT_NEAR(size.width, kWidth * kTwipsPerPixel, 30);
      EXPECT_NEAR(size.height, kHeight * kTwipsPerPixel, 30);
    }
  }
}

TEST_F(PictureLoaderTest, NaturalSizeComesFromPixelsOrHeader) {
  const std::string bitmap = directory_.Write("a", MakeBmp(kWidth, kHeight, QuartersAt));
  EXPECT_EQ(Show(bitmap, {0, 0, 9, 9}, screen_)->NaturalSize(2).width, kWidth * kTwipsPerPixel / 2);
  const std::string inches = directory_.Write("b", MakePlaceableWmf(1000, 500, 500));
  const TwipSize size = Show(inches, {0, 0, 9, 9}, screen_)->NaturalSize(2);
  EXPECT_EQ(size.width, 2880);
  EXPECT_EQ(size.height, 1440);
}

TEST_F(PictureLoaderTest, PicturesAreUpright) {
  const struct {
    int orientation;
    std::array<int, 4> quarters;
  } cases[] = {{1, {0, 1, 2, 3}}, {2, {1, 0, 3, 2}}, {3, {3, 2, 1, 0}}, {4, {2, 3, 0, 1}}, {5, {0, 2, 1, 3}},
               {6, {2, 0, 3, 1}}, {7, {3, 1, 2, 0}}, {8, {1, 3, 0, 2}}, {9, {0, 1, 2, 3}}};
  for (const auto& [orientation, quarters] : cases) {
    SCOPED_TRACE(orientation);
    const bool is_turned = orientation >= 5 && orientation <= 8;
    const PixelRect box{0, 0, is_turned ? kHeight : kWidth, is_turned ? kWidth : kHeight};
    for (const auto make : {MakeJpeg, MakePng, MakeTiff}) {
      const auto picture =
          Show(directory_.Write("photo", make(kWidth, kHeight, QuartersAt, orientation)), box, screen_);
      ExpectQuarters(screen_, box, quarters);
      EXPECT_EQ(picture->NaturalSize(1).width, static_cast<float>(box.width) * kTwipsPerPixel);
    }
  }
}

TEST(FileHeads, RecogniseSeveralScans) {
  const struct {
    char frame;
    char colours;
    char colours_in_first_scan;
    bool has_several_scans;
  } cases[] = {
      {'\xC0', 3, 3, false}, {'\xC0', 3, 1, true}, {'\xC1', 1, 1, false}, {'\xC2', 3, 3, true}, {'\xC4', 9, 1, false}};
  for (const auto& test : cases) {
    const std::string head = std::string("\xFF\xD8\xFF") + test.frame + std::string("\0\x08\x08\0\1\0\1", 7) +
                             test.colours + std::string("\xFF\xDA\0\x08", 4) + test.colours_in_first_scan;
    EXPECT_EQ(HasSeveralScans(std::vector<std::uint8_t>(head.begin(), head.end())), test.has_several_scans)
        << int{test.frame} << ' ' << int{test.colours_in_first_scan};
  }
}

TEST(FileHeads, FindTagsOfWebp) {
  const std::string exif = "II*tags!";
  const auto find = [](std::string bytes) {
    const std::vector<std::uint8_t> file(bytes.begin(), bytes.end());
    const ByteSpan found = WebpExif(file);
    return std::string(found.begin(), found.end());
  };
  const std::string start = std::string("RIFF\x80\0\0\0WEBPVP8X\3\0\0\0abc\0", 24);
  EXPECT_EQ(find(start + std::string("EXIF\x08\0\0\0", 8) + exif), exif);
  EXPECT_EQ(find(start + std::string("EXIF\x09\0\0\0", 8) + exif), "");
  EXPECT_EQ(find(start + std::string("ALPH\xF8\xFF\xFF\xFF", 8) + exif), "");
  EXPECT_EQ(find("RIFF"), "");
}

TEST_F(PictureLoaderTest, TransparentPixelsShowTheBackground) {
  const auto left_half = [](int x, int) { return x < 16; };
  const std::string path = directory_.Write("part", MakeGif(kWidth, kHeight, {20, 10, 32, 24}, left_half));
  for (const int scale : {1, 2}) {
    Screen screen(kWidth * scale, kHeight * scale);
    Show(path, screen.Bounds(), screen);
    const struct {
      int x;
      int y;
      Pixel pixel;
    } points[] = {{5, 5, Screen::kBackground},   {60, 20, Screen::kBackground}, {30, 5, Screen::kBackground},
                  {30, 40, Screen::kBackground}, {25, 20, Screen::kBackground}, {45, 15, 0xFF00FF00},
                  {45, 30, 0xFFFFFFFF}};
    for (const auto& [x, y, pixel] : points) EXPECT_EQ(screen.At(x * scale, y * scale), pixel) << x << "," << y;
  }
}

TEST_F(PictureLoaderTest, ADeletedFileIsDecodedForANewBox) {
  for (const std::string& bytes : {MakeJpeg(kWidth, kHeight, QuartersAt), MakeEmf(kWidth, kHeight)}) {
    const std::string path = directory_.Write("kept", bytes);
    const auto picture = Show(path, {0, 0, 10, 8}, screen_);
    std::filesystem::remove(path);
    Screen screen(200, 160);
    picture->Paint(screen.View(), {0, 0, 200, 160}, {0, 0, 200, 100});
    EXPECT_EQ(screen.At(150, 120), Screen::kBackground) << "outside of what was asked for";
    picture->Paint(screen.View(), {0, 0, 200, 160}, screen.Bounds());
    ExpectQuarters(screen, screen.Bounds());
  }
}

TEST_F(PictureLoaderTest, FailsOnWhatIsNoPicture) {
  const std::string bitmap = MakeBmp(kWidth, kHeight, QuartersAt);
  const std::string photo = MakeJpeg(kWidth, kHeight, QuartersAt);
  std::string giant = bitmap;
  giant.replace(18, 8, std::string("\x60\xEA\0\0\x60\xEA\0\0", 8));
  std::string endless = MakeEmf(kWidth, kHeight);
  endless.replace(4, 4, std::string("\xFC\xFF\xFF\xFF", 4));
  std::string lost = MakePlaceableWmf(kWidth, kHeight, 96);
  lost.resize(lost.size() - 6);
  using enum FailureNumber;
  const struct {
    std::string path;
    FailureNumber number;
  } cases[] = {{directory_.Path("none.jpg"), kNotFound},
               {directory_.Path("none\\none.jpg"), kNotFound},
               {"", kNotFound},
               {directory_.Write("whole.bmp", bitmap) + '\0' + ".bmp", kNotFound},
               {directory_.MakeDirectory("directory.jpg"), kUnreadable},
               {directory_.Write("empty.jpg", ""), kBadPicture},
               {directory_.Write("text.jpg", "hello\n"), kBadPicture},
               {directory_.Write("start.jpg", photo.substr(0, 3)), kBadPicture},
               {directory_.Write("head.jpg", photo.substr(0, 200)), kBadPicture},
               {directory_.Write("head.gif", MakeQuartersGif().substr(0, 13)), kBadPicture},
               {directory_.Write("giant.bmp", giant), kBadPicture},
               {directory_.Write("endless.emf", endless), kBadPicture},
               {directory_.Write("lost.wmf", lost), kBadPicture},
               {directory_.Write("head.wmf", MakePlainWmf(9, 9).substr(0, 18)), kBadPicture}};
  for (const auto& [path, number] : cases) EXPECT_EQ(LoadFailure(path), number) << path;
}

TEST_F(PictureLoaderTest, ACutFileShowsWhatItHasOrFails) {
  for (const std::string& bytes : {MakeBmp(kWidth, kHeight, QuartersAt), MakeJpeg(kWidth, kHeight, QuartersAt),
                                   MakeQuartersGif(), MakeEmf(kWidth, kHeight), MakePlainWmf(kWidth, kHeight)}) {
    for (std::size_t length = 0; length < bytes.size(); length += bytes.size() / 20 + 1) {
      const auto failure = LoadFailure(directory_.Write("cut", bytes.substr(0, length)));
      EXPECT_TRUE(!failure || failure == FailureNumber::kBadPicture) << length;
    }
  }
}

const MetafileRecord kSave{EMR_SAVEDC, META_SAVEDC, {}};
const MetafileRecord kDrawBlack{EMR_SETROP2, META_SETROP2, {R2_BLACK}};
MetafileRecord Restore(int which) { return {EMR_RESTOREDC, META_RESTOREDC, {which}}; }

// A state that the file has not saved is the caller's. Restoring it would lose the place of the picture.
TEST_F(PictureLoaderTest, AMetafileRestoresOnlyWhatItHasSaved) {
  const struct {
    std::vector<MetafileRecord> records;
    bool is_black;
  } cases[] = {{{Restore(-1), Restore(-1)}, false},
               {{Restore(-3), Restore(1), Restore(2), Restore(0)}, false},
               {{kSave, kDrawBlack, Restore(-1)}, false},
               {{kSave, kDrawBlack, kSave, Restore(1)}, false},
               {{kSave, kDrawBlack, kSave, Restore(-1)}, true},
               {{kSave, kDrawBlack, Restore(-2), Restore(2)}, true}};
  for (const std::string& plain : {MakeEmf(kWidth, kHeight), MakePlainWmf(kWidth, kHeight)}) {
    for (const auto& [records, is_black] : cases) {
      SCOPED_TRACE(testing::Message() << "a file of " << plain.size() << " and " << records.size() << " records");
      const std::string path = directory_.Write("saved", WithRecords(plain, records, RecordPlace::kFirst));
      Screen screen(100, 80);
      Show(path, {5, 7, kWidth, kHeight}, screen);
      if (is_black) {
        EXPECT_EQ(screen.At(12, 14), 0xFF000000);
      } else {
        ExpectQuarters(screen, {5, 7, kWidth, kHeight});
      }
    }
  }
}

class CountingMetafile : public Metafile {
 public:
  explicit CountingMetafile(int& plays) : plays_(plays) {}
  TwipSize NaturalSize() const override { return {600, 600}; }
  void Play(HDC context, const PixelRect& box) const override {
    ++plays_;
    SetPixelV(context, box.left + 1, box.top + 1, RGB(255, 0, 0));
  }

 private:
  int& plays_;
};

// As for a picture and its backdrop.
TEST(MetafilePicture, IsPlayedOnceOnTheSameGround) {
  int plays = 0;
  MetafilePicture picture(std::make_unique<CountingMetafile>(plays));
  const struct {
    PixelRect box;
    Pixel ground;
    Pixel corner;
    int plays;
  } paints[] = {{{2, 2, 9, 9}, 0xFF102030, 0xFF102030, 1}, {{2, 2, 9, 9}, 0xFF102030, 0xFF102030, 1},
                {{4, 1, 9, 9}, 0xFF102030, 0xFF102030, 1}, {{2, 2, 9, 8}, 0xFF102030, 0xFF102030, 2},
                {{2, 2, 9, 8}, 0xFF000000, 0xFF000000, 3}, {{2, 2, 9, 8}, 0xFF000000, 0xFF123456, 4},
                {{2, 2, 9, 8}, 0xFF000000, 0xFF123456, 5}, {{2, 2, 9, 8}, 0xFF000000, 0xFF000000, 6}};
  for (const auto& paint : paints) {
    Screen screen(20, 20);
    std::fill(screen.pixels.begin(), screen.pixels.end(), paint.ground);
    screen.View().Row(paint.box.top)[paint.box.left] = paint.corner;
    picture.Paint(screen.View(), paint.box, screen.Bounds());
    EXPECT_EQ(screen.At(paint.box.left + 1, paint.box.top + 1), 0xFFFF0000) << paint.plays;
    EXPECT_EQ(screen.At(paint.box.left, paint.box.top), paint.corner) << paint.plays;
    EXPECT_EQ(plays, paint.plays);
  }
}

TEST_F(PictureLoaderTest, AnEndlessMetafileStopsAfterTwoSeconds) {
  const MetafileRecord disc{EMR_ELLIPSE, META_ELLIPSE, {2, 2, kWidth - 2, kHeight - 2}};
  const std::vector<MetafileRecord> discs(1'000'000, disc);
  Screen screen(1600, 1200);
  for (const std::string& plain : {MakeEmf(kWidth, kHeight), MakePlainWmf(kWidth, kHeight)}) {
    const std::string path = directory_.Write("endless", WithRecords(plain, discs, RecordPlace::kLast));
    const ULONGLONG start = GetTickCount64();
    Show(path, screen.Bounds(), screen);
    EXPECT_LT(GetTickCount64() - start, 20'000U);
    EXPECT_EQ(screen.At(1, 1), 0xFFFF0000);
  }
}

TEST_F(PictureLoaderTest, RefusesALargeFileBeforeReadingIt) {
  const std::string path = directory_.Write("large.bmp", "BM");
  std::filesystem::resize_file(path, (std::uintmax_t{512} << 20U) + 1);
  try {
    Show(path, screen_.Bounds(), screen_);
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description(), "Picture file too large");
  }
}

}  // namespace
}  // namespace quorvale
