#include "config/config_fixture.h"

namespace quorvale {
namespace {

constexpr char kHoliday[] = "C:\\Holiday.qvl";

class PlayListCommandTest : public ConfigTest {
 protected:
  void SetUp() override {
    ConfigTest::SetUp();
    for (const char* const name : {"p", "q", "s"}) desktop.files.AddFile("C:\\" + std::string(name));
    desktop.files.AddFile(kHoliday, "P:C:\\p\r\nP:C:\\gone\r\nS:C:\\s\r\nP:C:\\q\r\n");
  }
  // Leaves "b" in the first list, with changes to save.
  void OpenAndChange() {
    OpenWith("a b", "t");
    Select({0});
    Press(kRemove);
    process.PreviewSuspended = false;
  }
};

TEST_F(PlayListCommandTest, EveryCommandKeepsItsRules) {
  struct Case {
    const char* item;
    MessageBoxAnswer answer;  // to the question whether to save; none is never asked
    const char* file;         // what the dialog gives; null is no dialog
    const char* pictures;
    const char* current;
    bool dirty;
    bool restarts;
  };
  constexpr auto kNone = MessageBoxAnswer::kNone;
  const Case cases[] = {
      {"mnuNew", MessageBoxAnswer::kCancel, nullptr, "b", "", true, false},
      {"mnuNew", MessageBoxAnswer::kNo, nullptr, "", "", false, true},
      {"mnuNew", MessageBoxAnswer::kYes, "", "", "", false, true},
      {"mnuNew", MessageBoxAnswer::kYes, "C:\\n", "", "", false, true},
      {"mnuOpen", MessageBoxAnswer::kCancel, nullptr, "b", "", true, false},
      {"mnuOpen", MessageBoxAnswer::kNo, "", "b", "", false, false},
      {"mnuOpen", MessageBoxAnswer::kNo, kHoliday, "C:\\p C:\\q", kHoliday, false, true},
      {"mnuOpen", MessageBoxAnswer::kNo, "C:\\none", "", "C:\\none", false, true},
      {"mnuMergeList", kNone, "", "b", "", true, false},
      {"mnuMergeList", kNone, kHoliday, "b C:\\p C:\\q", "", true, true},
      {"mnuMergeList", kNone, "C:\\none", "b", "", true, true},
      {"mnuSave", kNone, "C:\\n", "b", "C:\\n", false, false},
      {"mnuSaveAs", kNone, "", "b", "", true, false},
      {"mnuSaveAs", kNone, "C:\\no\\n", "b", "C:\\no\\n", true, false},
  };
  for (const Case& c : cases) {
    const std::string file = c.file == nullptr ? "" : c.file;
    SCOPED_TRACE(c.item + std::to_string(static_cast<int>(c.answer)) + file);
    OpenAndChange();
    desktop.dialogs.files.clear();
    desktop.boxes.shown.clear();
    if (c.answer != kNone) desktop.boxes.Answer(c.answer);
    bool was_paused = false;
    if (c.file != nullptr) desktop.dialogs.AnswerFile([&](const auto&) { return was_paused = IsPaused(), file; });
    EXPECT_EQ(Restarts([&] { Choose(c.item); }), c.restarts);
    EXPECT_EQ(was_paused, c.file != nullptr);
    EXPECT_EQ(Names(0), c.pictures);
    EXPECT_EQ(form->CurPlayList(), c.current);
    EXPECT_EQ(form->PlayListDirty(), c.dirty);
    EXPECT_FALSE(IsPaused() || process.PreviewSuspended);
    const bool fails = file == "C:\\none" || file == "C:\\no\\n";
    EXPECT_EQ(desktop.boxes.shown.size(), (c.answer == kNone ? 0U : 1U) + (fails ? 1U : 0U));
    form->Unload();
  }
}

// The search that can't be made ends Open half-way: what is pruned is pruned, and the old name stays.
TEST_F(PlayListCommandTest, AFailureOfTheSearchEndsOpenWithoutAWord) {
  OpenAndChange();
  form->SetCurPlayList("C:\\Old.old.qvl");
  desktop.boxes.Answer(MessageBoxAnswer::kNo);
  desktop.files.failures.FailCall(FileCall::kFind, 3, 0);
  desktop.dialogs.AnswerFile(kHoliday);
  Choose("mnuOpen");
  EXPECT_EQ(Names(0) + Names(1), "C:\\p C:\\qC:\\s");
  EXPECT_EQ(form->CurPlayList(), "C:\\Old.old.qvl");
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_EQ(desktop.boxes.shown[0].text, "Your Play List [Old] has been changed.  Do you want to save your changes?");
  EXPECT_FALSE(IsPaused());
}

}  // namespace
}  // namespace quorvale
