#include "toolkit/picture_box.h"

#include <limits>

#include "base/failure.h"
#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Colour kRed = 0x0000FF;
constexpr Colour kGreen = 0x00FF00;
constexpr Pixel kBlackRgb = 0x000000;
constexpr Pixel kRedRgb = 0xFF0000;
constexpr Pixel kGreenRgb = 0x00FF00;
constexpr Pixel kBlueRgb = 0x0000FF;

constexpr TwipRect kWholeBox{0, 0, 1500, 600};

class PictureBoxTest : public HeadlessTest {
 protected:
  void SetUp() override { form->Load(); }

  std::shared_ptr<Picture> Load(int width, int height, const std::vector<std::string>& colours) {
    desktop.files.AddFile("C:\\p", PictureText(width, height, colours));
    return box.LoadPicture("C:\\p", [](const TwipSize&) { return kWholeBox; });
  }

  // The pixels of a row at these columns.
  std::vector<Pixel> Row(int y, const std::vector<int>& columns) {
    std::vector<Pixel> row;
    row.reserve(columns.size());
    for (const int x : columns) row.push_back(RgbAt(box.Pixels(), x, y));
    return row;
  }

  // Presents all changes and clears the log.
  void Settle() {
    app.PumpEvents();
    desktop.presentations.clear();
  }

  Application app{desktop};
  std::shared_ptr<ScriptedForm> form = std::make_shared<ScriptedForm>(app);
  PictureBox& box = form->box;
};

TEST_F(PictureBoxTest, FollowsBackColourScaleAndSize) {
  EXPECT_EQ(box.Pixels().Bounds(), (PixelRect{0, 0, 100, 40}));
  box.LineBox(0, 0, 150, 150, kGreen);
  box.SetBackColor(kBlack);
  EXPECT_EQ(RgbAt(box.Pixels(), 5, 5), kGreenRgb) << "the same colour repaints nothing";
  box.SetBackColor(kRed);
  EXPECT_EQ(RgbAt(box.Pixels(), 5, 5), kRedRgb);
  desktop.SetScreen(800, 600, 1.5F);
  EXPECT_EQ(box.Pixels().Bounds(), (PixelRect{0, 0, 150, 60}));
  EXPECT_EQ(RgbAt(box.Pixels(), 149, 59), kRedRgb);
  EXPECT_EQ(desktop.windows.Find(box.Hwnd())->bounds, (PixelRect{10, 0, 100, 40}));
  EXPECT_EQ(box.TextWidth("ab"), 240) << "text keeps its size in twips";
  box.Move(0, 0, 150, 150);
  EXPECT_EQ(box.Pixels().Bounds(), (PixelRect{0, 0, 15, 15}));
}

TEST_F(PictureBoxTest, RefusesAHugeSizeAndKeepsTheOldOne) {
  for (const float side : {1e30F, 1e6F, std::numeric_limits<float>::infinity()}) {
    EXPECT_EQ(FailureOf([&] { box.Move(0, 0, side, side); }), FailureNumber::kInvalidValue);
    EXPECT_EQ(box.Width(), 1500);
    EXPECT_EQ(box.Pixels().Width(), 100);
  }
}

TEST_F(PictureBoxTest, PaintsImagesInOrderOverTheBackground) {
  form->image_below.SetWidth(450);
  form->image_below.SetHeight(300);
  form->image_below.SetPicture(Load(2, 1, {"ff0000", "00ff00"}));
  form->image_above.SetLeft(375);
  form->image_above.SetPicture(Load(10, 40, {"0000ff"}));
  form->image_below.SetVisible(true);
  form->image_above.SetVisible(true);
  const std::vector<int> columns{0, 14, 15, 24, 25, 34, 35};
  EXPECT_THAT(Row(0, columns), ElementsAre(kRedRgb, kRedRgb, kGreenRgb, kGreenRgb, kBlueRgb, kBlueRgb, kBlackRgb));
  form->image_above.SetPicture(Load(1, 40, {"ff0000"}));
  EXPECT_THAT(Row(0, {24, 25, 26}), ElementsAre(kGreenRgb, kRedRgb, kGreenRgb));
  form->image_above.SetPicture(Load(3, 40, {"0000ff"}));
  EXPECT_THAT(Row(0, {25, 27, 28}), ElementsAre(kBlueRgb, kBlueRgb, kGreenRgb));
  form->image_above.SetVisible(false);
  EXPECT_THAT(Row(0, columns), ElementsAre(kRedRgb, kRedRgb, kGreenRgb, kGreenRgb, kGreenRgb, kBlackRgb, kBlackRgb));
}

// Drawings are not remembered, so they vanish in that area.
TEST_F(PictureBoxTest, RepaintsTheAreaOfAChangedImageOnly) {
  ImageControl& image = form->image_below;
  image.SetLeft(300);
  image.SetWidth(300);
  image.SetHeight(600);
  image.SetPicture(Load(1, 1, {"ff0000"}));
  image.SetVisible(true);
  const std::vector<int> columns{10, 20, 39, 40, 60};
  const std::tuple<const char*, std::function<void()>, std::vector<Pixel>> cases[] = {
      {"nothing", [] {}, {kGreenRgb, kGreenRgb, kGreenRgb, kGreenRgb, kGreenRgb}},
      {"same place", [&] { image.SetLeft(300); }, {kGreenRgb, kGreenRgb, kGreenRgb, kGreenRgb, kGreenRgb}},
      {"hidden", [&] { image.SetVisible(false); }, {kGreenRgb, kBlackRgb, kBlackRgb, kGreenRgb, kGreenRgb}},
      {"moved while hidden", [&] { image.SetLeft(600); }, {kGreenRgb, kGreenRgb, kGreenRgb, kGreenRgb, kGreenRgb}},
      {"shown", [&] { image.SetVisible(true); }, {kGreenRgb, kGreenRgb, kGreenRgb, kRedRgb, kGreenRgb}},
      {"moved", [&] { image.SetLeft(300); }, {kGreenRgb, kRedRgb, kRedRgb, kBlackRgb, kGreenRgb}},
      {"emptied", [&] { image.SetPicture(nullptr); }, {kGreenRgb, kBlackRgb, kBlackRgb, kGreenRgb, kGreenRgb}},
  };
  for (const auto& [change, make, row] : cases) {
    SCOPED_TRACE(change);
    box.LineBox(0, 0, 1500, 600, kGreen);
    make();
    EXPECT_EQ(Row(5, columns), row);
  }
}

TEST_F(PictureBoxTest, ImagesWithoutStretchTakeThePicturesSize) {
  desktop.SetScreen(800, 600, 2);
  form->measure.SetPicture(Load(30, 10, {"ff0000"}));
  EXPECT_EQ(form->measure.Width(), 225) << "one picture pixel is one of the screen's";
  EXPECT_EQ(form->measure.Height(), 75);
  form->measure.SetPicture(nullptr);
  EXPECT_EQ(form->measure.Width(), 0);
  EXPECT_EQ(FailureOf([&] { form->measure.Container(); }), FailureNumber::kInvalidArgument);
  EXPECT_EQ(&form->image_below.Container(), &box);
}

TEST_F(PictureBoxTest, LineBoxCoversItsCornersInAnyOrder) {
  const TwipRect corners[] = {{150, 75, 300, 150}, {300, 150, 150, 75}, {300, 75, 150, 150}};
  for (const TwipRect& c : corners) {
    box.Cls();
    Settle();
    box.LineBox(c.left, c.top, c.width, c.height, kGreen);
    EXPECT_THAT(box.Pixels().Dirty().Spans().size(), 5U);
    EXPECT_THAT(Row(5, {9, 10, 19, 20}), ElementsAre(kBlackRgb, kGreenRgb, kGreenRgb, kBlackRgb));
    EXPECT_EQ(RgbAt(box.Pixels(), 10, 4), kBlackRgb);
    EXPECT_EQ(RgbAt(box.Pixels(), 10, 10), kBlackRgb);
  }
}

TEST_F(PictureBoxTest, DrawsCirclesAndScalesPens) {
  desktop.SetScreen(800, 600, 2);
  box.SetForeColor(kRed);
  box.SetFillColor(kGreen);
  box.SetDrawWidth(4);
  box.Circle(750, 300, 150);  // centre 100, 40, radius 20, ring 16 to 24
  EXPECT_THAT(Row(40, {75, 77, 83, 85, 100, 122, 125}),
              ElementsAre(kBlackRgb, kRedRgb, kRedRgb, kGreenRgb, kGreenRgb, kRedRgb, kBlackRgb));
  box.Cls();
  box.PSet(750, 300, kGreen);
  EXPECT_THAT(Row(40, {95, 97, 102, 104}), ElementsAre(kBlackRgb, kGreenRgb, kGreenRgb, kBlackRgb));
  box.Line(0, 0, 0, 600, kRed);
  EXPECT_THAT(Row(40, {0, 3, 4}), ElementsAre(kRedRgb, kRedRgb, kBlackRgb));
}

TEST_F(PictureBoxTest, PrintsAtThePositionAndMovesToTheNextLine) {
  EXPECT_EQ(box.TextWidth("\xC3\xA4 b"), 360);
  EXPECT_EQ(box.TextHeight("ab"), 285);
  box.SetForeColor(kRed);
  box.SetCurrentX(150);
  box.SetCurrentY(30);
  box.Print("a b");
  EXPECT_THAT(Row(2, {9, 10, 16, 17, 18, 25, 26, 33}),
              ElementsAre(kBlackRgb, kRedRgb, kRedRgb, kBlackRgb, kBlackRgb, kBlackRgb, kRedRgb, kBlackRgb));
  EXPECT_EQ(box.CurrentX(), 0);
  EXPECT_EQ(box.CurrentY(), 315);
  box.SetCurrentX(-75);
  box.Print(std::string(100, 'x'));
  EXPECT_EQ(RgbAt(box.Pixels(), 0, 21), kRedRgb) << "cut off at both ends";
  box.Cls();
  EXPECT_EQ(box.CurrentY(), 0);
  EXPECT_EQ(RgbAt(box.Pixels(), 10, 2), kBlackRgb);
}

TEST_F(PictureBoxTest, RefusesInvalidNumbers) {
  const float infinity = std::numeric_limits<float>::infinity();
  const std::function<void()> wrong[] = {
      [&] { box.Line(0, infinity, 0, 0, kRed); },
      [&] { box.LineBox(0, 0, std::nanf(""), 0, kRed); },
      [&] { box.Circle(0, 0, -1); },
      [&] { box.Circle(0, 0, std::nanf("")); },
      [&] { box.PSet(-infinity, 0, kRed); },
  };
  for (const auto& draw : wrong) EXPECT_EQ(FailureOf(draw), FailureNumber::kInvalidArgument);
  for (const int pen : {0, -1, 32'768}) {
    EXPECT_EQ(FailureOf([&] { box.SetDrawWidth(pen); }), FailureNumber::kInvalidValue);
  }
  const TwipRect size = form->image_below.Bounds();
  for (const float side : {-1.0F, std::nanf("")}) {
    EXPECT_EQ(FailureOf([&] { form->image_below.SetWidth(side); }), FailureNumber::kInvalidValue);
    EXPECT_EQ(FailureOf([&] { form->image_below.SetHeight(side); }), FailureNumber::kInvalidValue);
  }
  EXPECT_EQ(form->image_below.Bounds(), size);
  box.LineBox(-1e30F, 0, 1e30F, 1e30F, kRed);
  box.Line(-1e30F, 300, 1e30F, 300, kGreen);
  EXPECT_EQ(RgbAt(box.Pixels(), 99, 39), kRedRgb);
  EXPECT_EQ(RgbAt(box.Pixels(), 50, 20), kGreenRgb);
}

TEST_F(PictureBoxTest, DrawingFailsWhenItsHandlerUnloadsTheForm) {
  box.Drawing = [&](const DrawOperation&) { form->Unload(); };
  EXPECT_EQ(FailureOf([&] { box.Cls(); }), FailureNumber::kNotLoaded);
}

TEST_F(PictureBoxTest, PresentsChangesInAPassAndBeforeLoading) {
  Settle();
  app.PumpEvents();
  EXPECT_THAT(desktop.presentations, IsEmpty());
  box.LineBox(0, 0, 150, 150, kRed);
  box.LineBox(0, 0, 150, 150, kRed);
  app.PumpEvents();
  ASSERT_EQ(desktop.presentations.size(), 1U);
  EXPECT_THAT(desktop.presentations[0].rects, ElementsAre(PixelRect{0, 0, 10, 10}));

  box.LineBox(0, 0, 15, 15, kGreen);
  TwipSize natural;
  desktop.files.AddFile("C:\\p", PictureText(30, 20, {"ff0000"}));
  box.LoadPicture("C:\\p", [&](const TwipSize& size) {
    EXPECT_EQ(desktop.presentations.size(), 2U);
    natural = size;
    return TwipRect{15, 30, 150, 7};
  });
  EXPECT_EQ(natural.width, 450);
  EXPECT_EQ(natural.height, 300);
  EXPECT_EQ(desktop.pictures.loads[0].box, (PixelRect{1, 2, 10, 0}));
  EXPECT_EQ(desktop.pictures.loads[0].clip, (PixelRect{0, 0, 100, 40}));
}

TEST_F(PictureBoxTest, MouseEventsGoToTheTopmostVisibleImage) {
  std::vector<std::string> hits;
  box.MouseMove = [&] { hits.emplace_back("box"); };
  box.MouseDown = [&] { hits.emplace_back("press"); };
  form->image_below.MouseMove = [&] { hits.emplace_back("below"); };
  form->image_above.MouseMove = [&] { hits.emplace_back("above"); };
  for (ImageControl* const image : {&form->image_below, &form->image_above}) {
    image->SetVisible(true);
    image->SetWidth(300);
    image->SetHeight(300);
  }
  form->image_above.SetLeft(150);
  for (const int x : {0, 9, 10, 29, 30}) desktop.MoveMouse(box.Hwnd(), x, 5);
  form->image_above.SetVisible(false);
  desktop.MoveMouse(box.Hwnd(), 10, 5);
  desktop.PressMouse(box.Hwnd(), 10, 5);  // the image has no handler for it, and the box does not get it
  desktop.PressMouse(box.Hwnd(), 50, 5);
  EXPECT_THAT(hits, ElementsAre("below", "below", "above", "above", "box", "below", "press"));
}

TEST_F(PictureBoxTest, UnloadingDuringAnEffectFailsTheNextStep) {
  const WindowHandle window = box.Hwnd();
  desktop.queue.AtPump(3, [&] { desktop.PressKey(window, 27); });
  box.KeyDown = [&](int) { form->Unload(); };
  int drawn = 0;
  const auto effect = [&] {
    const auto run = box.OpenPacedRun();
    while (drawn < 10) {
      box.PSet(0, 0, kRed);
      ++drawn;
      run->PumpEvents();
    }
  };
  EXPECT_EQ(FailureOf([&] { effect(); }), FailureNumber::kNotLoaded);
  EXPECT_EQ(drawn, 3);
  ASSERT_EQ(desktop.paced_runs.size(), 1U);
  EXPECT_EQ(desktop.paced_runs[0].pumps, 3);
  EXPECT_FALSE(desktop.paced_runs[0].open);
}

}  // namespace
}  // namespace quorvale
