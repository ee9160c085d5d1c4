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

TEST_F(PlayListCommandTest, DialogsAreAskedForAsTheyAreKnown) {
  OpenAndChange();
  form->SetCurPlayList(kHoliday);
  desktop.boxes.Answer(MessageBoxAnswer::kNo);
  for (const char* const item : {"mnuOpen", "mnuMergeList", "mnuSaveAs"}) Choose(item);
  EXPECT_EQ(desktop.boxes.shown.at(0).text,
            "Your Play List [Holiday] has been changed.  Do you want to save your changes?");
  EXPECT_EQ(desktop.boxes.shown[0].title, "Save Play List");
  for (const FileDialog& dialog : desktop.dialogs.files) {
    EXPECT_EQ(dialog.title, dialog.save ? "Save Play List" : "Select Play List");
    EXPECT_EQ(dialog.start_name, dialog.save ? kHoliday : "");
    EXPECT_EQ(dialog.filter, dialog.save ? "Play List Files (*.qvl)|*.qvl|All Files(*.*)|*.*"
                                         : "Play Lists (*.qvl)|*.qvl|All Files(*.*)|*.*");
    EXPECT_EQ(dialog.flags, dialog.save ? 0x280006U : 0x281004U);
  }
}

// The search that can't be made ends Open half-way: what is pruned is pruned, and the old name stays.
TEST_F(PlayListCommandTest, AFailureOfTheSearchEndsOpenWithoutAWord) {
  OpenAndChange();
  form->SetPlayListDirty(false);
  desktop.files.failures.FailCall(FileCall::kFind, 3, 0);
  desktop.dialogs.AnswerFile(kHoliday);
  Choose("mnuOpen");
  EXPECT_EQ(Names(0) + Names(1), "C:\\p C:\\qC:\\s");
  EXPECT_EQ(form->CurPlayList(), "");
  EXPECT_TRUE(desktop.boxes.shown.empty());
  EXPECT_FALSE(IsPaused());
}

}  // namespace
}  // namespace quorvale
