#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <chrono>
#include <functional>

#include "desktop/window_fixture.h"
#include "platform/common/pacing.h"

namespace quorvale {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using std::chrono::seconds;

TEST(PaceAccount, SavesUpWhatPassesOweAndGivesNoCredit) {
  const struct {
    const char* what;
    std::function<void(PaceAccount&)> course;
    nanoseconds due;
  } cases[] = {
      {"too little to wait for", [](auto& a) { a.AddPass(microseconds(999), microseconds(0)); }, nanoseconds(0)},
      {"many passes",
       [](auto& a) {
         for (int i = 0; i < 50; ++i) a.AddPass(microseconds(25), microseconds(5));
       },
       milliseconds(1)},
      {"a slow pass before",
       [](auto& a) {
         a.AddPass(milliseconds(1), seconds(1));
         a.AddPass(milliseconds(2), milliseconds(0));
       },
       milliseconds(2)},
      {"a wait that an event cut short",
       [](auto& a) {
         a.AddPass(milliseconds(5), milliseconds(0));
         a.Waited(milliseconds(2));
       },
       milliseconds(3)},
      {"a timer that came late",
       [](auto& a) {
         a.AddPass(milliseconds(1), milliseconds(0));
         a.Waited(microseconds(1400));
         a.AddPass(milliseconds(2), milliseconds(0));
       },
       microseconds(1600)},
      {"a handler that took long in a wait",
       [](auto& a) {
         a.AddPass(milliseconds(1), milliseconds(0));
         a.Waited(seconds(9));
         a.AddPass(milliseconds(3), milliseconds(0));
       },
       milliseconds(2)},
      {"forgotten",
       [](auto& a) {
         a.AddPass(seconds(1), milliseconds(0));
         a.Forget();
       },
       nanoseconds(0)},
  };
  for (const auto& c : cases) {
    PaceAccount account;
    c.course(account);
    EXPECT_EQ(account.Due(), c.due) << c.what;
  }
}

nanoseconds TimeOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::steady_clock::now() - start;
}

class PacedRunTest : public WindowFixture {
 protected:
  explicit PacedRunTest(PassLengths lengths) : WindowFixture(lengths) {
    AddSurface();
    surface_peer_->Invalidate();
    Show();
    run_ = platform_.OpenPacedRun(*surface_peer_);
  }

  nanoseconds TimeOfPasses(int count) {
    return TimeOf([&] {
      for (int i = 0; i < count; ++i) run_->PumpEvents();
    });
  }

  std::unique_ptr<PacedRun> run_;
};

class ShortPasses : public PacedRunTest {
 protected:
  ShortPasses() : PacedRunTest({microseconds(100), milliseconds(20)}) {}
};

// What is owed at the end, less than a millisecond, is left out, and one overshoot may have been given back.
TEST_F(ShortPasses, TakeTheirNominalLength) { EXPECT_GE(TimeOfPasses(200), milliseconds(18)); }

TEST_F(ShortPasses, TakeLongerWhenTheyPresent) {
  surface_.FillRect({0, 0, 10, 10}, 0xFFFF0000);
  surface_peer_->Invalidate();
  EXPECT_GE(TimeOfPasses(1), milliseconds(18));
}

class LongPasses : public PacedRunTest {
 protected:
  LongPasses() : PacedRunTest({seconds(30), seconds(30)}) {}
};

TEST_F(LongPasses, EndWithTheFirstEvent) {
  QTimer::singleShot(20, &FormWindow(), [this] { log.emplace_back("timer"); });
  EXPECT_LT(TimeOfPasses(1), seconds(15));
  EXPECT_THAT(log, testing::ElementsAre("timer"));
}

TEST_F(LongPasses, OweNothingOutOfSight) {
  window_->SetVisible(false);
  EXPECT_LT(TimeOfPasses(100), seconds(15));
}

TEST_F(LongPasses, OweNothingWhenTheSurfaceIsGone) {
  surface_peer_.reset();
  EXPECT_LT(TimeOfPasses(100), seconds(15));
}

TEST_F(LongPasses, OweNothingWhenTheSurfaceGoesDuringAPass) {
  QTimer::singleShot(0, &FormWindow(), [this] { surface_peer_.reset(); });
  EXPECT_LT(TimeOfPasses(100), seconds(15));
}

// A box waited up to 35 seconds for an effect that had begun inside it.
TEST_F(LongPasses, OweNothingOnceTheBoxThatTheyBeganInHasItsAnswer) {
  QTimer::singleShot(0, &FormWindow(), [this] {
    qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(QMessageBox::Ok)->click();
    EXPECT_LT(TimeOfPasses(100), seconds(15));
  });
  platform_.ShowMessageBox({.text = "text"});
  QTimer::singleShot(50, &FormWindow(), [] {});
  EXPECT_GE(TimeOfPasses(1), milliseconds(20)) << "and it ends there";
}

TEST_F(LongPasses, AreNoMatterOfPassesOutsideARun) {
  EXPECT_LT(TimeOf([this] { platform_.PumpEvents(); }), seconds(15));
}

class PassesWithoutLength : public PacedRunTest {
 protected:
  PassesWithoutLength() : PacedRunTest({nanoseconds(0), nanoseconds(0)}) {}
};

TEST_F(PassesWithoutLength, NeverWait) {
  EXPECT_LT(TimeOfPasses(20'000), seconds(15));  // 25 microseconds each would be 0.5 seconds; a wait never ends
}

}  // namespace
}  // namespace quorvale
