#include "show/picture_layout.h"

#include "support/show_fixture.h"

namespace quorvale {
namespace {

void ExpectRect(const TwipRect& rect, const TwipRect& expected) {
  EXPECT_FLOAT_EQ(rect.left, expected.left);
  EXPECT_FLOAT_EQ(rect.top, expected.top);
  EXPECT_FLOAT_EQ(rect.width, expected.width);
  EXPECT_FLOAT_EQ(rect.height, expected.height);
}

// A line of text in "MS Serif" at 12 point is 16 pixels an em, 19 pixels high.
constexpr float kCaptionTop = 9000 - 19 * 15;

struct LayoutCase {
  const char* what;
  const char* picture;
  std::vector<std::pair<const char*, const char*>> options;
  TwipRect place;
};

class PictureLayoutTest : public ShowTest {};

TEST_F(PictureLayoutTest, PlacesThePictureWhereTheLoaderExpectsIt) {
  const std::vector<LayoutCase> cases = {
      {"centred", "picture 400 200 ff0000", {}, {3000, 3000, 6000, 3000}},
      {"of the screen's size", "picture 800 600 ff0000", {}, {0, 0, 12000, 9000}},
      {"wider than the screen", "picture 1600 600 ff0000", {}, {-6000, 0, 24000, 9000}},
      {"stretched", "picture 40 30 ff0000", {{"Stretch", "1"}}, {0, 0, 12000, 9000}},
      {"2 does not stretch", "picture 400 200 ff0000", {{"Stretch", "2"}}, {3000, 3000, 6000, 3000}},
      {"stretched over its name",
       "picture 4 3 ff0000",
       {{"Stretch", "1"}, {"ShowFileName", "1"}},
       {0, 0, 12000, kCaptionTop}},
      {"no taller than the name's top", "picture 400 581 ff0000", {{"ShowFileName", "1"}}, {3000, 142.5, 6000, 8715}},
      {"taller than the name's top",
       "picture 400 590 ff0000",
       {{"ShowFileName", "1"}},
       {3000, 75, 6000, kCaptionTop - 75}},
      {"taller than the screen is squeezed",
       "picture 400 1000 ff0000",
       {{"ShowFileName", "1"}},
       {3000, -3000, 6000, kCaptionTop + 3000}},
      {"fit, enlarged", "picture 40 20 ff0000", {{"Scaling", "Fit"}}, {0, 1500, 12000, 6000}},
      {"fit, reduced", "picture 600 6000 ff0000", {{"Scaling", "Fit"}}, {5550, 0, 900, 9000}},
      {"fit, a line", "picture 1 30000 ff0000", {{"Scaling", "Fit"}}, {5992.5, 0, 15, 9000}},
      {"fit wins over stretched",
       "picture 30 30 ff0000",
       {{"Scaling", "Fit"}, {"Stretch", "1"}},
       {1500, 0, 9000, 9000}},
      {"fit above its name",
       "picture 100 581 ff0000",
       {{"Scaling", "Fit"}, {"ShowFileName", "1"}},
       {5250, 0, 1500, kCaptionTop}},
      {"fit within its frame",
       "picture 388 4 ff0000",
       {{"Scaling", "Fit"}, {"ShowFrame", "1"}, {"FrameThickness", "9"}},
       {180, 4440, 11640, 120}},
      {"as set", "picture 400 200 ff0000", {{"Scaling", "As Set Under Pictures"}}, {3000, 3000, 6000, 3000}},
      {"no such scaling", "picture 400 200 ff0000", {{"Scaling", "fit"}}, {3000, 3000, 6000, 3000}},
  };
  for (const LayoutCase& c : cases) {
    SCOPED_TRACE(c.what);
    for (const char* option : {"Stretch", "ShowFileName", "Scaling", "ShowFrame"}) process.options.Set(option, "");
    for (const auto& [key, value] : c.options) process.options.Set(key, value);
    Pictures({c.picture});
    MainForm& form = Start();
    FirstTick();
    ExpectRect(form.PicPreview.Bounds(), c.place);
    EXPECT_EQ(desktop.pictures.loads.back().box, ToPixels(c.place, 1));
    form.Unload();
    process.show.stop_requested = false;
  }
}

// A picture that fills the screen reaches beyond its control. The loader hears which part of it will be seen.
TEST_F(PictureLayoutTest, AFillingPictureIsCutEvenlyToWhatIsSeen) {
  struct Case {
    const char* picture;
    std::vector<const char*> flags;
    TwipRect seen;
    PixelRect whole;
  };
  for (const Case& c :
       {Case{"picture 1000 600 ff0000 00ff00 0000ff ffffff", {}, {0, 0, 12000, 9000}, {-100, 0, 1000, 600}},
        Case{"picture 4 4 ff0000", {"Stretch"}, {0, 0, 12000, 9000}, {0, -100, 800, 800}},
        Case{"picture 8 8 ff0000", {"ShowFileName"}, {0, 0, 12000, kCaptionTop}, {0, -110, 800, 801}},
        Case{"picture 8 1 ff0000", {"ShowFrame"}, {60, 60, 11880, 8880}, {-1968, 4, 4736, 592}}}) {
    SCOPED_TRACE(c.picture);
    for (const char* option : {"Stretch", "ShowFileName", "ShowFrame"}) process.options.Set(option, "");
    for (const char* flag : c.flags) process.options.Set(flag, "1");
    process.options.Set("Scaling", "Fill");
    Pictures({c.picture});
    MainForm& form = Start();
    FirstTick();
    ExpectRect(form.PicPreview.Bounds(), c.seen);
    EXPECT_EQ(desktop.pictures.loads.back().box, c.whole);
    EXPECT_EQ(desktop.pictures.loads.back().clip, ToPixels(c.seen, 1));
    EXPECT_EQ(ToPixels(form.PicPreview.PictureBounds(), 1), c.whole);
    if (c.flags.empty()) {
      // Stripes of 250 pixels, the first from 100 pixels left of the screen.
      for (const auto& [x, colour] : {std::pair{149, 0xFF0000U}, {150, 0x00FF00U}, {399, 0x00FF00U}, {400, 0x0000FFU}})
        EXPECT_EQ(At(x, 300), colour) << x;
      process.options.Set("Scaling", "");
      NextTick();
      EXPECT_EQ(form.PicPreview.PictureBounds(), form.PicPreview.Bounds());
    }
    form.Unload();
    process.show.stop_requested = false;
  }
}

TEST_F(PictureLayoutTest, NothingOfTheLastPictureStaysBesideAFittedOne) {
  Pictures({"picture 10 10 ff0000", "picture 10 20 ff0000", "damaged"});
  SetOptions({{"Scaling", "Fit"}, {"ShowFrame", "1"}, {"FrameColor", "&HFF00&"}});
  MainForm& form = Start();
  FirstTick();
  EXPECT_EQ(At(102, 300), 0x00FF00U);
  EXPECT_EQ(At(400, 3), 0x00FF00U);
  NextTick();
  EXPECT_EQ(At(102, 300), 0U);
  const TwipRect place = form.PicPreview.Bounds();
  NextTick();
  ExpectRect(form.PicPreview.Bounds(), place);
  form.PicBase.Move(0, 0, 3000, 4500);  // a quarter across, half down
  SetOptions({{"ShowFrame", ""}, {"LastPicture", "0"}});
  NextTick();
  ExpectRect(form.PicPreview.Bounds(), {375, 0, 2250, 4500});
}

TEST_F(PictureLayoutTest, TheBackdropIsTheBlurredPictureBesideTheFittedOne) {
  Pictures({"picture 100 200 ff0000 0000ff"});
  for (const auto& [key, value] : {std::pair{"Scaling", "Fit"},
                                   {"FitBackdrop", "1"},
                                   {"ShowFrame", "1"},
                                   {"ShowFileName", "1"},
                                   {"FrameColor", "&HFF00&"}})
    process.options.Set(key, value);
  Start();
  FirstTick();
  // 287 pixels are the picture, with its frame of 4 pixels from 253 on. The backdrop shows the middle of its height.
  for (const auto& [x, colour] : {std::pair{1, 0xFF0000U},
                                  {200, 0xFF0000U},
                                  {254, 0x00FF00U},
                                  {258, 0xFF0000U},
                                  {398, 0xFF0000U},
                                  {402, 0x0000FFU},
                                  {545, 0x00FF00U},
                                  {600, 0x0000FFU}}) {
    EXPECT_EQ(At(x, 300), colour) << x;
    EXPECT_EQ(At(x, 301), colour) << x << ", in a row that repeats the one above";
  }
  EXPECT_NE(At(250, 300), 0xFF0000U) << "blurred, the other colour reaches beyond the picture";
  EXPECT_EQ(At(10, 580), 0xFF0000U);
  EXPECT_EQ(At(10, 581), 0U) << "the line of the name";
  for (const auto& [key, value] : {std::pair{"ShowFrame", ""}, {"ShowFileName", ""}, {"FitBackdrop", "0"}})
    process.options.Set(key, value);
  NextTick();
  EXPECT_EQ(At(1, 300), 0U);
}

TEST_F(PictureLayoutTest, APixelOfAPictureIsAPixelOfADenseScreen) {
  desktop.SetScreen(800, 600, 2);
  Pictures({"picture 400 300 ff0000"});
  MainForm& form = Start();
  FirstTick();
  ExpectRect(form.PicPreview.Bounds(), {4500, 3375, 3000, 2250});
  EXPECT_EQ(form.PicBase.Pixels().Width(), 1600);
  EXPECT_EQ(At(600, 450), 0xFF0000U);
  EXPECT_EQ(At(999, 749), 0xFF0000U);
  EXPECT_EQ(At(599, 450), 0U);
  EXPECT_EQ(At(1000, 450), 0U);
}

TEST_F(PictureLayoutTest, FrameAndNameAreDrawnUnderThePicture) {
  Pictures({"picture 400 300 ff0000"});
  SetOptions({{"ShowFileName", "1"}, {"ShowFrame", "1"}, {"FrameColor", "&HFF00&"}});
  MainForm& form = Start();
  form.PicBase.SetDrawWidth(30);
  const DrawRecorder recorder(form.PicBase);
  FirstTick();
  ASSERT_EQ(recorder.operations.size(), 3U);
  EXPECT_EQ(recorder.operations[0], (DrawOperation{.kind = DrawOperation::Kind::kCls}));
  // Two characters of 8 pixels each, in the middle of the bottom line.
  EXPECT_EQ(recorder.operations[1],
            (DrawOperation{
                .kind = DrawOperation::Kind::kPrint, .x1 = 5880, .y1 = kCaptionTop, .colour = kWhite, .text = "P0"}));
  EXPECT_EQ(recorder.operations[2], (DrawOperation{.kind = DrawOperation::Kind::kBox,
                                                   .x1 = 2940,
                                                   .y1 = 2190,
                                                   .x2 = 9060,
                                                   .y2 = 6810,
                                                   .draw_width = 1,
                                                   .colour = 0xFF00}));
  EXPECT_EQ(At(200, 150), 0xFF0000U);
  EXPECT_EQ(At(199, 149), 0x00FF00U);
  EXPECT_EQ(At(195, 145), 0U);
  EXPECT_EQ(At(393, 585), 0xFFFFFFU);
}

TEST_F(PictureLayoutTest, TheCaptionIsTheNameTheDateOrBoth) {
  struct Case {
    const char* choice;
    const char* picture;
    const char* text;
  };
  for (const char* scaling : {"", "Fit"}) {
    for (const Case& c : {Case{"", "picture 4 3 ff0000 taken 2026-05-17", "P1"},
                          {"Date taken", "picture 4 3 ff0000 taken 2026-05-17", "P1"},
                          {"Date Taken", "picture 4 3 ff0000 taken 2026-05-17", "2026-05-17"},
                          {"Date Taken", "picture 4 3 ff0000", ""},
                          {"Date Taken", "damaged", ""},
                          {"File Name and Date", "picture 4 3 ff0000 taken 2026-05-17", "P1, 2026-05-17"},
                          {"File Name and Date", "picture 4 3 ff0000", "P1"}}) {
      SCOPED_TRACE(testing::Message() << scaling << " " << c.choice << " " << c.picture);
      Pictures({"picture 4 3 ff0000 taken 2001-02-03", c.picture});
      SetOptions({{"Scaling", scaling}, {"ShowFileName", "1"}, {"CaptionText", c.choice}});
      MainForm& form = Start();
      const DrawRecorder recorder(form.PicBase);
      FirstTick();
      NextTick();
      EXPECT_EQ(recorder.operations.back().text, c.text);
      EXPECT_FLOAT_EQ(recorder.operations.back().y1, kCaptionTop);
      EXPECT_FLOAT_EQ(recorder.operations.back().x1, 6000 - 60 * static_cast<float>(std::string(c.text).size()));
      form.Unload();
      process.show.stop_requested = false;
    }
  }
}

TEST_F(PictureLayoutTest, AFrameWithoutAColourIsBlack) {
  Pictures({"picture 400 300 ff0000"});
  SetOptions({{"ShowFrame", "1"}, {"BackColor", "&HFF00&"}});
  Start();
  FirstTick();
  EXPECT_EQ(At(100, 100), 0x00FF00U);
  EXPECT_EQ(At(198, 148), 0U);
}

TEST_F(PictureLayoutTest, FrameWidthsFollowTheModeAndTheOption) {
  struct Case {
    RunMode mode;
    const char* thickness;
    float width;
  };
  // Empty reads as 0; a thickness too large for 16 bits is no frame at all.
  for (const Case& c : {Case{RunMode::kShow, "", 0},
                        {RunMode::kPreview, "3", 60},
                        {RunMode::kConfiguration, "3", 12},
                        {RunMode::kShow, "20", 400},
                        {RunMode::kShow, "1.6", 32},
                        {RunMode::kShow, "none", 0},
                        {RunMode::kShow, "2000", 0}}) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(c.mode) << " " << c.thickness);
    Pictures({"picture 400 300 ff0000"});
    SetOptions({{"ShowFrame", "1"}, {"FrameThickness", c.thickness}});
    MainForm& form = Start();
    process.mode = c.mode;
    const DrawRecorder recorder(form.PicBase);
    FirstTick();
    ASSERT_EQ(recorder.operations.size(), 1U);
    EXPECT_FLOAT_EQ(recorder.operations[0].x1, 3000 - c.width);
    form.Unload();
    process.show.stop_requested = false;
  }
}

TEST_F(PictureLayoutTest, ASmallBoxScalesTheLayoutButNotTheFrame) {
  Pictures({"picture 400 300 ff0000"});
  process.options.Set("ShowFrame", "1");
  MainForm& form = Start();
  process.mode = RunMode::kPreview;
  form.PicBase.Move(0, 0, 3000, 4500);  // a quarter across, half down
  const DrawRecorder recorder(form.PicBase);
  FirstTick();
  ExpectRect(form.PicPreview.Bounds(), {750, 1125, 1500, 2250});
  ASSERT_EQ(recorder.operations.size(), 1U);
  EXPECT_FLOAT_EQ(recorder.operations[0].x1, 750 - 60);
  EXPECT_FLOAT_EQ(recorder.operations[0].x2, 750 + 1500 + 60);
}

TEST_F(PictureLayoutTest, AFailedLoadRepeatsThePictureUnderItsOwnName) {
  Pictures({"picture 400 300 ff0000", "damaged"});
  process.options.Set("ShowFileName", "1");
  MainForm& form = Start();
  FirstTick();
  const TwipRect place = form.PicPreview.Bounds();
  const DrawRecorder recorder(form.PicBase);
  NextTick();
  ExpectRect(form.PicPreview.Bounds(), place);
  EXPECT_EQ(At(400, 300), 0xFF0000U);
  EXPECT_EQ(recorder.operations.back().text, "P1");
}

TEST_F(PictureLayoutTest, WithoutAPictureThereIsStillNameAndFrame) {
  Pictures({"damaged"});
  SetOptions({{"ShowFileName", "1"}, {"ShowFrame", "1"}});
  MainForm& form = Start();
  const DrawRecorder recorder(form.PicBase);
  FirstTick();
  EXPECT_EQ(recorder.operations.size(), 3U);
  EXPECT_EQ(form.PicPreview.Width(), 0);
}

// The list gets shorter during the effect: the name and its line can't be had, and nothing tells where the picture
// should end.
TEST_F(PictureLayoutTest, ACaptionThatFailsLeavesThePictureAndItsFrame) {
  Pictures({"picture 400 300 ff0000", "picture 200 100 00ff00"});
  for (const char* option : {"ShowFileName", "ShowFrame"}) process.options.Set(option, "1");
  process.options.Set("SwapAffect", "Sweep Right");
  MainForm& form = Start();
  FirstTick();
  const TwipRect place = form.PicPreview.Bounds();
  desktop.queue.AtPump(5, [&] { process.show.picture_list = Collection({"C:\\P0.jpg"}); });
  const DrawRecorder recorder(form.PicBase);
  NextTick();
  ExpectRect(form.PicPreview.Bounds(), place);
  EXPECT_FLOAT_EQ(recorder.operations.back().y2, place.top + place.height + 60);
}

TEST_F(PictureLayoutTest, AStretchedPictureHasNoFrame) {
  Pictures({"picture 40 30 ff0000"});
  SetOptions({{"Stretch", "1"}, {"ShowFrame", "1"}});
  MainForm& form = Start();
  form.PicBase.SetDrawWidth(30);
  const DrawRecorder recorder(form.PicBase);
  FirstTick();
  EXPECT_TRUE(recorder.operations.empty());
  EXPECT_EQ(form.PicBase.DrawWidth(), 30);
}

}  // namespace
}  // namespace quorvale
