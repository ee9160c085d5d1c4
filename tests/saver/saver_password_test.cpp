#include "saver/saver_password.h"

#include "run/main_procedure.h"
#include "support/show_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kDesktopKey[] = "Control Panel\\Desktop";
constexpr char kFlag[] = "ScreenSaveUsePassword";

class SaverPasswordTest : public ShowTest {
 protected:
  void SetUp() override {
    ShowTest::SetUp();
    Pictures({"picture 800 600 ff0000"});
    desktop.host.platform_id = 1;
  }

  void SetFlag(const std::string& text) { desktop.registry.SetText(kHkeyCurrentUser, kDesktopKey, kFlag, text); }

  // Every call to do with the password since the show began.
  std::vector<std::string> Calls() {
    std::vector<std::string> names;
    for (const std::string& call : desktop.calls) {
      if (call.starts_with("SystemParametersInfo")) names.push_back(call);
      if (call.starts_with("VerifyScreenSavePwd")) names.emplace_back("VerifyScreenSavePwd");
    }
    return names;
  }
};

TEST_F(SaverPasswordTest, IsAskedOnlyIfSetAndLeftToSavers) {
  const auto number = [&](char low, char high) {
    desktop.registry.SetValue(kHkeyCurrentUser, kDesktopKey, kFlag, kRegDword, std::string{low, high, 0, 0});
  };
  const std::tuple<const char*, std::int32_t, std::function<void()>, bool> cases[] = {
      {"no flag", 1, [] {}, false},
      {"text 1", 1, [&] { SetFlag("1"); }, true},
      {"text 1 on the family that locks itself", 2, [&] { SetFlag("1"); }, false},
      {"text -1", 1, [&] { SetFlag("-1"); }, true},
      {"text 0", 1, [&] { SetFlag("0"); }, false},
      {"text without a number", 1, [&] { SetFlag("yes"); }, false},
      {"number 1", 1, [&] { number(1, 0); }, true},
      {"number 1 on an older platform", 0, [&] { number(1, 0); }, true},
      {"number 0", 1, [&] { number(0, 0); }, false},
      {"number 1000, of which three digits count", 1, [&] { number('\xE8', 3); }, true},
  };
  for (const auto& [what, platform, set, in_force] : cases) {
    SCOPED_TRACE(what);
    desktop.host.platform_id = platform;
    desktop.calls.clear();
    desktop.password.user = [] { return 1; };
    process.show.stop_requested = false;
    set();
    Start();
    form_->Unload();
    EXPECT_FALSE(form_->IsLoaded());
    if (in_force) {
      EXPECT_THAT(Calls(),
                  ElementsAre("SystemParametersInfo 97 1", "VerifyScreenSavePwd", "SystemParametersInfo 97 0"));
    } else {
      EXPECT_THAT(Calls(), IsEmpty());
    }
  }
}

TEST_F(SaverPasswordTest, ARefusalLetsTheShowGoOnUntilTheRightAnswer) {
  SetFlag("1");
  Start();
  FirstTick();
  std::uint32_t answer = 0x10000;  // the low 16 bits count
  int cursor_while_asked = 0;
  int asked = 0;
  desktop.password.user = [&] {
    ++asked;
    cursor_while_asked = desktop.windows.cursor_count;
    EXPECT_TRUE(process.show.stop_requested);
    NextTick();  // the timer fires under the dialog, and no slide changes
    return answer;
  };
  Moves(form_->PicBase.Hwnd(), 10);
  EXPECT_TRUE(form_->IsLoaded());
  EXPECT_FALSE(process.show.stop_requested);
  EXPECT_EQ(cursor_while_asked, 6);
  EXPECT_EQ(desktop.windows.cursor_count, -6);
  EXPECT_EQ(process.show.mouse_move_count, 10);
  EXPECT_EQ(desktop.pictures.loads.size(), 1U);
  desktop.MoveMouse(form_->PicBase.Hwnd());
  EXPECT_EQ(asked, 1) << "the eleventh move ends nothing";
  desktop.Deactivate(form_->Hwnd());
  EXPECT_EQ(desktop.windows.GetForegroundWindow(), form_->Hwnd()) << "another program's window is kept behind";
  answer = 1;
  desktop.PressKey(form_->PicBase.Hwnd(), 32);
  EXPECT_FALSE(form_->IsLoaded());
  EXPECT_EQ(desktop.windows.cursor_count, 7) << "6 from the asking, raised once more by the unloading";
}

TEST_F(SaverPasswordTest, AnEffectGoesOnAfterARefusalAndEndsTheProcessAfterTheAnswer) {
  SetFlag("1");
  process.options.Set("SwapAffect", "Sweep Right");
  Start();
  FirstTick();
  std::uint32_t answer = 0;
  desktop.password.user = [&] { return answer; };
  const auto press = [&] { desktop.PressKey(form_->PicBase.Hwnd(), 32); };
  desktop.queue.AtPump(20, press);
  NextTick();
  EXPECT_EQ(desktop.paced_runs.back().pumps, 802);
  answer = 1;
  desktop.queue.AtPump(20, press);
  EXPECT_THROW(NextTick(), ProcessEnded);
  EXPECT_EQ(desktop.paced_runs.back().pumps, 20) << "the form is gone, so the next bar can't be drawn";
  EXPECT_EQ(desktop.calls.back(), "EndProcess");
}

TEST_F(SaverPasswordTest, ReadKeyValueGivesEmptyTextForWhatItCantRead) {
  SetFlag("1");
  desktop.registry.SetText(kHkeyCurrentUser, kDesktopKey, "Long", std::string(255, 'x'));
  const std::tuple<std::uint32_t, const char*, const char*, const char*> cases[] = {
      {kHkeyCurrentUser, kDesktopKey, kFlag, "1"},    {0x80000007, kDesktopKey, kFlag, ""},
      {0x7FFFFFFF, kDesktopKey, kFlag, ""},           {kHkeyLocalMachine, kDesktopKey, kFlag, ""},
      {kHkeyCurrentUser, "Control Panel", kFlag, ""}, {kHkeyCurrentUser, kDesktopKey, "Other", ""},
      {kHkeyCurrentUser, kDesktopKey, "Long", ""},  // 256 bytes with its NUL, one too many
  };
  for (const auto& [hive, path, name, expected] : cases) {
    EXPECT_EQ(ReadKeyValue(desktop.registry, hive, path, name), expected) << hive << " " << path << " " << name;
  }
  EXPECT_EQ(desktop.registry.OpenKeys(), 0);
}

TEST_F(SaverPasswordTest, TheChangeSwitchOpensTheSystemsDialogAndEnds) {
  const std::pair<std::string, std::string> cases[] = {{"/A 77", "PwdChangePassword SCRSAVE 77"},
                                                       {"/a", "PwdChangePassword SCRSAVE 0"}};
  for (const auto& [text, call] : cases) {
    Main(process, text);
    EXPECT_EQ(desktop.calls.back(), call);
    EXPECT_EQ(process.app.forms.Count(), 0);
  }
}

}  // namespace
}  // namespace quorvale
