#include "show/slide_tick.h"

#include <set>

#include "playlist/media_collections.h"
#include "support/failing_allocation.h"
#include "support/show_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SlideTickTest : public ShowTest {
 protected:
  void ThreePictures() { Pictures({"picture 10 10 ff0000", "picture 10 10 00ff00", "picture 10 10 0000ff"}); }

  // Starts a show with all that a tick can do, and waits for its first tick.
  void StartFullShow() {
    ThreePictures();
    Sounds(1);
    SetOptions({{"ShowFileName", "1"}, {"ShowFrame", "1"}, {"SwapAffect", "Shrinking Square"}});
    Start();
    FirstTick();
  }

  // The numbers of the files that were asked for so far.
  std::vector<char> Loaded() {
    std::vector<char> numbers;
    for (const auto& load : desktop.pictures.loads) numbers.push_back(load.path.at(4));
    return numbers;
  }
};

// A full disk stores no positions; the show must not stand at one picture for that.
TEST_F(SlideTickTest, PositionsThatAreNotStoredHoldForTheRun) {
  ThreePictures();
  Sounds(2);
  process.options.Set("LastPicture", "1");
  desktop.registry.failures.FailEvery(RegistryCall::kSet, kErrorWriteFault);
  Start();
  FirstTick();
  NextTick();
  NextTick();
  EXPECT_THAT(Loaded(), ElementsAre('1', '2', '0'));
  EXPECT_EQ(Position(), "1");
  desktop.registry.failures.Forget();
  NextTick();
  EXPECT_EQ(Position(), "2") << "and then from the store again";
  process.options.Set("LastPicture", "0");
  NextTick();
  EXPECT_THAT(Loaded(), ElementsAre('1', '2', '0', '1', '0'));
  ASSERT_EQ(desktop.sound.played.size(), 5U);
  EXPECT_NE(desktop.sound.played[0].path, desktop.sound.played[1].path);
}

struct PositionCase {
  const char* stored;
  const char* reset;
  std::vector<std::string> positions;  // after each of the first ticks
};

TEST_F(SlideTickTest, PositionsFollowTheStoredOne) {
  const std::vector<PositionCase> cases = {
      {nullptr, "", {"1", "2", "3", "1"}},  // nothing stored yet
      {"2", "", {"3", "1"}},                // wraps at the end
      {"3", "", {"1", "2"}},                // the list's length
      {"40", "", {"1", "2"}},               // the list got shorter
      {"2", "1", {"1", "2"}},               // started over, once
      {"2", "0.4", {"3"}},                  // rounds to 0: off
      {"2", "-7", {"1"}},                   // any number but 0 is on
      {"2", "99999999999", {"1"}},          // a test that fails takes its branch
      {"two", "", {"0", "1"}},              // no number: nothing this time, from the start at the next
      {"", "", {"0", "1"}},
      {" 2 ", "", {"3"}},
      {"2x", "", {"0", "1"}},
      {"-3", "", {"-2", "-1", "0", "1", "2"}},
      {"2147483647", "", {"0", "1"}},  // one more does not fit
  };
  for (const PositionCase& c : cases) {
    SCOPED_TRACE(testing::Message() << "stored " << (c.stored == nullptr ? "nothing" : c.stored) << ", reset "
                                    << c.reset);
    HeadlessDesktop other;
    Process fresh(other, other.Services());
    fresh.options.Set("SwapAffect", "None");
    fresh.options.Set("ResetPicList", c.reset);
    if (c.stored != nullptr) fresh.options.Set("LastPicture", c.stored);
    for (int i = 0; i < 3; ++i) {
      fresh.settings.SaveSetting("PictureFiles", "File" + std::to_string(i), "C:\\P.jpg");
    }
    std::make_shared<MainForm>(fresh)->Show();
    int wait = 500;
    for (const std::string& position : c.positions) {
      other.queue.Advance(wait);
      wait = 5000;
      EXPECT_EQ(fresh.options.Get("LastPicture", "none"), position);
    }
  }
}

// A screen saver daemon starts a process for each monitor. `show_seed` is what they share besides the store.
TEST_F(SlideTickTest, ProcessesOfOneShowShareARoundInRandomOrder) {
  HeadlessDesktop beside;
  const System own = beside.Services();
  Process sibling(beside,
                  {desktop.registry, desktop.files, own.windows, own.sound, own.programs, own.host, own.password});
  Pictures(std::vector<std::string>(40, "picture 8 6 ff0000"));
  SetOptions({{"Monitors", "A Picture on Each"}, {"PicRandom", "1"}, {"LastPicture", "17"}});
  desktop.host.show_seed = beside.host.show_seed = 7;
  beside.host.clock_seed = 2;
  Start();
  sibling.mode = RunMode::kShow;
  std::make_shared<MainForm>(sibling)->Show();
  EXPECT_NE(process.random.Next(), sibling.random.Next()) << "effects would be alike";
  std::set<std::string> shown;
  for (int i = 0; i < 40; ++i) {
    HeadlessDesktop& each = i % 2 == 0 ? desktop : beside;
    each.queue.Advance(i < 2 ? 500 : 5000);
    shown.insert(each.pictures.loads.back().path);
  }
  EXPECT_EQ(shown.size(), 40U);
}

TEST_F(SlideTickTest, AFileThatCantBeShownIsPassedOver) {
  ThreePictures();
  desktop.files.Remove("C:\\P1.jpg");
  Start();
  FirstTick();
  EXPECT_EQ(At(400, 300), 0xFF0000U);
  NextTick();
  EXPECT_EQ(At(400, 300), 0xFF0000U) << "the picture before stays";
  EXPECT_EQ(Position(), "2");
  NextTick();
  EXPECT_EQ(At(400, 300), 0x0000FFU);
  EXPECT_THAT(Loaded(), ElementsAre('0', '1', '2'));
}

TEST_F(SlideTickTest, WithoutPicturesTheSurfaceIsClearedAndSoundsGoOn) {
  Sounds(2);
  MainForm& form = Start();
  form.PicBase.LineBox(0, 0, 12000, 9000, kWhite);
  FirstTick();
  EXPECT_EQ(At(400, 300), 0U);
  NextTick();
  NextTick();
  EXPECT_EQ(Position(), "none");
  ASSERT_EQ(desktop.sound.played.size(), 3U);
  EXPECT_EQ(desktop.sound.played[0], (RecordedSound::Played{"C:\\S0.wav", 0x20003}));
  EXPECT_EQ(desktop.sound.played[1].path, "C:\\S1.wav");
  EXPECT_EQ(desktop.sound.played[2].path, "C:\\S0.wav");
  EXPECT_EQ(process.options.Get("LastSound", ""), "1");
}

TEST_F(SlideTickTest, TheResetHappensOnceEvenForAnEmptyList) {
  SetOptions({{"ResetPicList", "1"}, {"LastPicture", "1"}});
  Start();
  FirstTick();
  process.show.picture_list = Collection({"C:\\a", "C:\\b"});
  NextTick();
  EXPECT_EQ(Position(), "2");
}

TEST_F(SlideTickTest, SoundsStartOverApartFromThePictures) {
  ThreePictures();
  Sounds(3);
  SetOptions({{"ResetSoundList", "1"}, {"LastPicture", "1"}, {"LastSound", "1"}});
  Start();
  FirstTick();
  EXPECT_EQ(Position(), "2");
  EXPECT_EQ(desktop.sound.played.back().path, "C:\\S0.wav");
}

// The picture is on view before its position is stored, the sound follows, and the timer comes last.
TEST_F(SlideTickTest, TheStepsOfATickComeInOrder) {
  ThreePictures();
  Sounds(1);
  process.options.Set("Interval", "7");
  MainForm& form = Start();
  std::vector<std::string> steps;
  desktop.registry.called = [&](RegistryCall call) {
    if (call != RegistryCall::kSet) return;
    steps.push_back((form.PicPreview.Visible() ? "store with picture, " : "store without picture, ") +
                    std::to_string(desktop.sound.played.size()) + " sounds, " +
                    std::to_string(form.tmrSwitch.Interval()));
  };
  FirstTick();
  desktop.registry.called = nullptr;
  EXPECT_THAT(steps, ElementsAre("store with picture, 0 sounds, 500", "store with picture, 1 sounds, 500"));
  EXPECT_EQ(form.tmrSwitch.Interval(), 7000);
}

TEST_F(SlideTickTest, ASoundPumpsBeforeAndAfterAndThePreviewHasNone) {
  ThreePictures();
  Sounds(1);
  Start();
  process.mode = RunMode::kPreview;
  std::int64_t pumps = desktop.queue.PumpCount();
  SlideTick(process, *form_);
  EXPECT_EQ(desktop.queue.PumpCount(), pumps);
  EXPECT_THAT(desktop.sound.played, IsEmpty());
  EXPECT_EQ(Position(), "1");

  process.mode = RunMode::kShow;
  std::vector<std::string> stored;
  for (const int pump : {1, 2}) {
    desktop.queue.AtPump(pump, [&] { stored.push_back(process.options.Get("LastSound", "none")); });
  }
  pumps = desktop.queue.PumpCount();
  SlideTick(process, *form_);
  EXPECT_EQ(desktop.queue.PumpCount() - pumps, 2);
  EXPECT_THAT(stored, ElementsAre("none", "1"));
}

TEST_F(SlideTickTest, ASuspendedTickDoesNothing) {
  ThreePictures();
  Start();
  process.show.preview_suspended = true;
  FirstTick();
  EXPECT_EQ(Position(), "none");
  EXPECT_FALSE(process.show.first_tick_over);
  EXPECT_EQ(form_->tmrSwitch.Interval(), 500);
}

TEST_F(SlideTickTest, TheIntervalIsTheUsersUnlessTheTimerRefusesIt) {
  const std::vector<std::pair<const char*, int>> cases = {
      {"7", 7000}, {"2.5", 2500}, {"65.535", 65535}, {"66", 500}, {"-1", 500}, {"0", 0}, {"soon", 0}, {"1e99", 500},
  };
  for (const auto& [text, interval] : cases) {
    SCOPED_TRACE(text);
    process.options.Set("Interval", text);
    Start();
    FirstTick();
    EXPECT_EQ(form_->tmrSwitch.Interval(), interval);
    form_->Unload();
    process.show.stop_requested = false;
  }
}

// The process ends where a transition would have run.
TEST_F(SlideTickTest, ALoneHiddenFormGoesAndEndsTheShow) {
  ThreePictures();
  for (const bool armed : {false, true}) {
    process.show.transition_armed = armed;
    form_ = std::make_shared<MainForm>(process);
    form_->Load();
    if (armed) {
      EXPECT_THROW(FirstTick(), ProcessEnded);
    } else {
      FirstTick();
    }
    EXPECT_FALSE(form_->IsLoaded());
    EXPECT_TRUE(process.show.stop_requested);
    EXPECT_EQ(desktop.host.ended, armed ? 1 : 0);
    EXPECT_TRUE(process.show.first_tick_over);
    process.show.stop_requested = false;
  }
}

TEST_F(SlideTickTest, TwoShowsSideBySideShareNothing) {
  ThreePictures();
  HeadlessDesktop other_desktop;
  Process other(other_desktop, other_desktop.Services());
  std::make_shared<MainForm>(other)->Show();
  Start();
  FirstTick();
  EXPECT_EQ(Position(), "1");
  EXPECT_FALSE(other.show.first_tick_over);
  other_desktop.queue.Advance(500);
  EXPECT_EQ(other.options.Get("LastPicture", "none"), "none");
}

TEST_F(SlideTickTest, AListReplacedInMidTickIsTheOneThatIsUsed) {
  ThreePictures();
  SetOptions({{"SwapAffect", "Sweep Right"}, {"LastPicture", "1"}});
  Start();
  FirstTick();
  // The effect of the tick for entry 3 finds a list of two: the entry is one failed step.
  desktop.queue.AtPump(5, [&] { process.show.picture_list = Collection({"C:\\P0.jpg", "C:\\P1.jpg"}); });
  NextTick();
  EXPECT_THAT(Loaded(), ElementsAre('1'));
  EXPECT_EQ(Position(), "3");
  NextTick();
  EXPECT_EQ(Position(), "1");
}

TEST_F(SlideTickTest, TheTimerDoesNotFireIntoATickThatRuns) {
  ThreePictures();
  SetOptions({{"SwapAffect", "Sweep Right"}, {"Interval", "2"}});
  Start();
  FirstTick();
  desktop.queue.SetMicrosecondsPerPump(50'000);  // the effect takes 40 seconds, twenty times the interval
  desktop.queue.Advance(2000);
  EXPECT_EQ(Position(), "2");
}

TEST_F(SlideTickTest, AMessageBoxDelaysTheTick) {
  ThreePictures();
  process.options.Set("SwapAffect", "Sweep Right");
  Start();
  FirstTick();
  desktop.queue.AtPump(3, [&] { process.app.ShowMessageBox({.text = "Hello"}); });
  desktop.boxes.Answer([&](const MessageBox&) {
    desktop.queue.Advance(20'000);  // the timer's events find the tick still running
    return MessageBoxAnswer::kOk;
  });
  NextTick();
  EXPECT_EQ(Position(), "2");
  EXPECT_EQ(desktop.boxes.shown.size(), 1U);
}

TEST_F(SlideTickTest, NoFailureEscapesWhicheverStoreCallFails) {
  StartFullShow();
  desktop.registry.calls.clear();
  NextTick();
  const auto calls = static_cast<int>(desktop.registry.calls.size());
  ASSERT_GT(calls, 30);
  for (int n = 1; n <= calls; ++n) {
    desktop.registry.failures.FailCall(RegistryCall::kAny, n, kErrorAccessDenied);
    NextTick();
    desktop.registry.failures.Forget();
    EXPECT_THAT(desktop.boxes.shown, IsEmpty()) << "call " << n;
    EXPECT_EQ(process.app.forms.Count(), 1);
  }
}

TEST_F(SlideTickTest, GoesOnWhicheverAllocationFails) {
  StartFullShow();
  int number = 0;
  for (bool has_failed = true; has_failed;) {
    ++number;
    process.app.Dispatch([&] {
      const FailingAllocation failing(number);
      SlideTick(process, *form_);
      has_failed = failing.HasFailed();
    });
    EXPECT_THAT(desktop.boxes.shown, IsEmpty()) << number;
    EXPECT_EQ(process.app.forms.Count(), 1) << number;
    const std::string before = Position();
    NextTick();
    EXPECT_NE(Position(), before) << number;
  }
  EXPECT_GT(number, 50);
}

}  // namespace
}  // namespace quorvale
