#include "transitions/run_transition.h"

#include <cmath>

#include "support/show_fixture.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

using Kind = DrawOperation::Kind;

// On 12000 by 9000 twips.
struct EffectCase {
  const char* name;
  std::size_t operations;
  int steps;
  DrawOperation first;
  DrawOperation last;
  int pen_left;
  // An operation of the third step, on a surface that is twice as large by then.
  std::size_t next_step;
  DrawOperation grown;
};

DrawOperation Bar(float x1, float y1, float x2, float y2) {
  return {.kind = Kind::kLine, .x1 = x1, .y1 = y1, .x2 = x2, .y2 = y2, .draw_width = 30, .colour = 0x00FF00};
}

const std::vector<EffectCase>& EffectCases() {
  // Spotlight takes the surface's own colours, here blue.
  static const auto kDisc = [](float radius, float x = 6000, float y = 4500) {
    return DrawOperation{
        .kind = Kind::kCircle, .x1 = x, .y1 = y, .radius = radius, .draw_width = 5, .colour = 0xFF0000};
  };
  static const std::vector<EffectCase> kCases = {
      {"Sweep Right", 401, 401, Bar(0, 0, 0, 9000), Bar(12000, 0, 12000, 9000), 30, 2, Bar(60, 0, 60, 18000)},
      {"Sweep Left", 401, 401, Bar(12000, 0, 12000, 9000), Bar(0, 0, 0, 9000), 30, 2, Bar(11940, 0, 11940, 18000)},
      {"Sweep Down", 451, 451, Bar(0, 0, 12000, 0), Bar(0, 9000, 12000, 9000), 30, 2, Bar(0, 40, 24000, 40)},
      {"Sweep Up", 451, 451, Bar(0, 9000, 12000, 9000), Bar(0, 0, 12000, 0), 30, 2, Bar(0, 8960, 24000, 8960)},
      {"Spotlight", 281, 281, kDisc(0), kDisc(8400), 5, 2, kDisc(60, 12000, 9000)},
      {"Horizontal Sandwich", 902, 451, Bar(0, 0, 12000, 0), Bar(0, 4500, 12000, 4500), 30, 5,
       Bar(0, 17980, 24000, 17980)},
      {"Vertical Sandwich", 1202, 601, Bar(0, 0, 0, 9000), Bar(6000, 0, 6000, 9000), 30, 5,
       Bar(23980, 0, 23980, 18000)},
      {"Shrinking Square", 904, 226, Bar(0, 0, 12000, 0), Bar(7500, 0, 7500, 9000), 30, 11,
       Bar(23960, 0, 23960, 18000)},
  };
  return kCases;
}

// A picture is on view, and transitions are called one by one.
class RunTransitionTest : public ShowTest {
 protected:
  void SetUp() override {
    Pictures({"picture 400 300 ff0000"});
    Start();
    FirstTick();
    form_->PicBase.SetBackColor(0xFF0000);
    form_->PicBase.SetFillColor(0xFF0000);
    process.options.Set("BackColor", std::to_string(0x00FF00));
  }

  // Gives what was drawn.
  std::vector<DrawOperation> Run(const std::string& name) {
    process.options.Set("SwapAffect", name);
    const DrawRecorder recorder(form_->PicBase);
    RunTransition(process, form_->PicBase, form_->PicPreview);
    return recorder.operations;
  }

  int PumpsOfLastRun() const { return desktop.paced_runs.back().pumps; }
};

// Bubbles has a test of its own.
TEST_F(RunTransitionTest, EachEffectDrawsItsOwnSequence) {
  ASSERT_EQ(EffectCases().size() + 1, Effects().size());
  for (const EffectCase& effect : EffectCases()) {
    SCOPED_TRACE(effect.name);
    const std::vector<DrawOperation> operations = Run(effect.name);
    ASSERT_EQ(operations.size(), effect.operations);
    EXPECT_EQ(operations.front(), effect.first);
    EXPECT_EQ(operations.back(), effect.last);
    EXPECT_EQ(PumpsOfLastRun(), effect.steps * 2);
    EXPECT_EQ(form_->PicBase.DrawWidth(), effect.pen_left);
  }
}

TEST_F(RunTransitionTest, TheStepsOfAPairAndOfTheSquareComeInOrder) {
  const std::vector<DrawOperation> square = Run("Shrinking Square");
  EXPECT_EQ(square[4], Bar(0, 20, 12000, 20));
  EXPECT_EQ(square[5], Bar(0, 8980, 12000, 8980));
  EXPECT_EQ(square[6], Bar(20, 0, 20, 9000));
  EXPECT_EQ(square[7], Bar(11980, 0, 11980, 9000));
  const std::vector<DrawOperation> sandwich = Run("Vertical Sandwich");
  EXPECT_EQ(sandwich[2], Bar(10, 0, 10, 9000));
  EXPECT_EQ(sandwich[3], Bar(11990, 0, 11990, 9000));
}

TEST_F(RunTransitionTest, EveryEffectWipesThePictureAway) {
  for (const EffectCase& effect : EffectCases()) {
    SCOPED_TRACE(effect.name);
    form_->PicBase.Cls();
    ASSERT_EQ(At(400, 300), 0xFF0000U);
    Run(effect.name);
    const Pixel wiped = std::string(effect.name) == "Spotlight" ? 0x0000FFU : 0x00FF00U;
    for (const auto& [x, y] : {std::pair{0, 0}, {799, 0}, {0, 599}, {799, 599}, {400, 300}, {250, 200}}) {
      EXPECT_EQ(At(x, y), wiped) << x << ", " << y;
    }
  }
}

// The places are drawn from the process's generator as it stands, across before down; nothing seeds it anew.
TEST_F(RunTransitionTest, BubblesAreDotsOnThePictureThatGrow) {
  process.random.Seed(77);
  Random reference;
  reference.Seed(77);
  const std::vector<DrawOperation> operations = Run("Bubbles");
  ASSERT_EQ(operations.size(), 400U);
  for (int i = 0; i < 400; ++i) {
    const float x = reference.Next() * 6000 + 3000;
    const float y = reference.Next() * 4500 + 2250;
    EXPECT_EQ(operations[static_cast<std::size_t>(i)],
              (DrawOperation{.kind = Kind::kPSet, .x1 = x, .y1 = y, .draw_width = i + 1, .colour = 0x00FF00}));
  }
  EXPECT_EQ(PumpsOfLastRun(), 800);
  EXPECT_EQ(form_->PicBase.DrawWidth(), 401);
  EXPECT_EQ(form_->PicPreview.GetPicture(), nullptr);
  EXPECT_EQ(form_->PicPreview.Width(), 6000);
}

TEST_F(RunTransitionTest, OddSizesEndWhereTheStepsEnd) {
  const std::tuple<const char*, TwipSize, std::vector<float>> cases[] = {
      {"Sweep Right", {45, 30}, {0, 30}},
      {"Sweep Left", {45, 30}, {45, 15}},
      {"Vertical Sandwich", {45, 30}, {0, 45, 10, 35, 20, 25}},  // the half, 22.5, goes to 22
      {"Sweep Right", {0, 0}, {0}},
      {"Vertical Sandwich", {0, 0}, {0, 0}}};
  for (const auto& [name, size, expected] : cases) {
    SCOPED_TRACE(testing::Message() << name << " " << size.width);
    form_->PicBase.Move(0, 0, size.width, size.height);
    std::vector<float> positions;
    for (const DrawOperation& operation : Run(name)) positions.push_back(operation.x1);
    EXPECT_EQ(positions, expected);
  }
}

// The number of steps is settled when an effect begins; each shape is drawn by the size of the moment.
TEST_F(RunTransitionTest, ASurfaceThatGrowsInMidEffectGetsLargerShapesAndNoMoreSteps) {
  for (const EffectCase& effect : EffectCases()) {
    SCOPED_TRACE(effect.name);
    form_->PicBase.Move(0, 0, 12000, 9000);
    desktop.queue.AtPump(4, [&] { form_->PicBase.Move(0, 0, 24000, 18000); });
    const std::vector<DrawOperation> operations = Run(effect.name);
    ASSERT_EQ(operations.size(), effect.operations);
    EXPECT_EQ(operations[effect.next_step], effect.grown);
  }
}

// Bubbles falls on the picture, so its places follow the picture's size.
TEST_F(RunTransitionTest, APictureThatShrinksInMidEffectGetsTheRestOfTheBubbles) {
  desktop.queue.AtPump(4, [&] {
    form_->PicPreview.SetWidth(150);
    form_->PicPreview.SetHeight(75);
  });
  const std::vector<DrawOperation> operations = Run("Bubbles");
  ASSERT_EQ(operations.size(), 400U);
  for (std::size_t i = 2; i < 400; ++i) {
    EXPECT_TRUE(operations[i].x1 < 3150 && operations[i].y1 < 2325) << i;
  }
}

TEST_F(RunTransitionTest, ThePauseFollowsSpeedAndMode) {
  form_->PicBase.Move(0, 0, 0, 0);  // one step
  const std::tuple<RunMode, std::int32_t, int> cases[] = {{RunMode::kShow, 1, 382},
                                                          {RunMode::kShow, 10, 202},
                                                          {RunMode::kShow, 20, 2},
                                                          {RunMode::kShow, 21, 1},
                                                          {RunMode::kPreview, 1, 4001},
                                                          {RunMode::kConfiguration, 10, 2201},
                                                          {RunMode::kConfiguration, 20, 201},
                                                          {RunMode::kPreview, 21, 1},
                                                          {RunMode::kPreview, 40, 1}};
  for (const auto& [mode, speed, pumps_a_step] : cases) {
    process.mode = mode;
    process.show.transition_speed = speed;
    Run("Sweep Down");
    EXPECT_EQ(PumpsOfLastRun(), pumps_a_step) << static_cast<int>(mode) << " " << speed;
  }
  process.show.transition_speed = -2'000'000'000;
  EXPECT_THROW(Run("Sweep Down"), Failure);
}

TEST_F(RunTransitionTest, NamesThatAreNoEffectDrawNothing) {
  form_->PicBase.SetDrawWidth(7);
  EXPECT_TRUE(Run("None").empty());
  EXPECT_EQ(form_->PicBase.DrawWidth(), 7);
  for (const char* name : {"none", "sweep right", "Sweep Right "}) {
    form_->PicBase.SetDrawWidth(7);
    EXPECT_TRUE(Run(name).empty()) << name;
    EXPECT_EQ(form_->PicBase.DrawWidth(), 30) << name;
  }
}

TEST_F(RunTransitionTest, AColourThatIsNoNumberAbandonsTheTransition) {
  for (const char* text : {"green", "1 2", "99999999999"}) {
    process.options.Set("BackColor", text);
    EXPECT_THROW(Run("Sweep Right"), Failure) << text;
  }
  process.options.Set("BackColor", "&H0000FF00&");
  EXPECT_EQ(Run("Sweep Right").front().colour, 0x00FF00U);
}

TEST_F(RunTransitionTest, OnlySweepRightStopsForASuspendedPreview) {
  for (const EffectCase& effect : EffectCases()) {
    process.show.preview_suspended = false;
    desktop.queue.AtPump(6, [&] { process.show.preview_suspended = true; });
    const std::size_t count = Run(effect.name).size();
    EXPECT_EQ(count, std::string(effect.name) == "Sweep Right" ? 3U : effect.operations) << effect.name;
  }
}

TEST_F(RunTransitionTest, AStopIsFoundAfterTheNextShapesOfEveryEffect) {
  for (const Effect& effect : Effects()) {
    const std::string name(effect.name);
    process.show.stop_requested = false;
    process.options.Set("SwapAffect", name);
    desktop.queue.AtPump(4, [&] { process.show.stop_requested = true; });  // in the second step's pause
    const DrawRecorder recorder(form_->PicBase);
    EXPECT_THROW(RunTransition(process, form_->PicBase, form_->PicPreview), ProcessEnded) << name;
    EXPECT_EQ(desktop.paced_runs.back().pumps, 5) << name;
  }
}

TEST_F(RunTransitionTest, RandomTakesTheNumberThatItsDrawRoundsTo) {
  const std::vector<Kind> kinds = {Kind::kLine, Kind::kLine, Kind::kLine, Kind::kLine, Kind::kCircle,
                                   Kind::kPSet, Kind::kLine, Kind::kLine, Kind::kLine};
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    Random reference;
    reference.Seed(seed);
    const double number = std::nearbyint(static_cast<double>(reference.Next()) * 8 + 1);
    desktop.host.clock_seed = seed;
    const DrawOperation first = Run("Random").front();
    const auto index = static_cast<std::size_t>(number) - 1;
    EXPECT_EQ(first.kind, kinds[index]) << number;
    if (index < 5) {
      EXPECT_EQ(first, EffectCases()[index].first) << number;
    }
  }
  const std::vector<DrawOperation> drawn = Run("Random");
  process.settings.DeleteSetting("Options", "SwapAffect");
  const DrawRecorder recorder(form_->PicBase);
  RunTransition(process, form_->PicBase, form_->PicPreview);
  EXPECT_EQ(recorder.operations, drawn) << "without a stored effect";
}

TEST_F(ShowTest, TheFirstPictureOfAProcessHasNoTransition) {
  Pictures({"picture 400 300 ff0000"});
  process.options.Set("SwapAffect", "Sweep Right");
  Start();
  FirstTick();
  EXPECT_TRUE(desktop.paced_runs.empty());
  NextTick();
  EXPECT_EQ(desktop.paced_runs.size(), 1U);
}

TEST_F(ShowTest, AHalfDoneSweepHasWipedHalfThePicture) {
  Pictures({"picture 800 600 ff0000", "picture 800 600 0000ff"});
  process.options.Set("SwapAffect", "Sweep Right");
  Start();
  FirstTick();
  std::vector<Pixel> seen;
  // Step 200 draws at 6000 twips, the middle; the pen reaches 15 pixels beyond.
  desktop.queue.AtPump(401, [&] { seen = {At(0, 0), At(414, 599), At(415, 0), At(799, 300)}; });
  NextTick();
  EXPECT_THAT(seen, testing::ElementsAre(0U, 0U, 0xFF0000U, 0xFF0000U));
  EXPECT_EQ(At(400, 300), 0x0000FFU);
}

}  // namespace
}  // namespace quorvale
