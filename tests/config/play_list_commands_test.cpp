#include "config/config_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Strings = std::vector<std::string>;

class PlayListCommandTest : public ConfigTest {
 protected:
  void SetUp() override {
    ConfigTest::SetUp();
    for (const char* const name : {"p", "q", "s"}) desktop.files.AddFile("C:\\" + std::string(name));
    desktop.files.AddFile("C:\\Holiday.qvl", "P:C:\\p\r\nP:C:\\gone\r\nS:C:\\s\r\nP:C:\\q\r\n");
  }
  // Leaves "b" in the first list, with changes to save.
  void OpenAndChange() {
    OpenWith({"a", "b"}, {"t"});
    Select({0});
    Press(kRemove);
    process.PreviewSuspended = false;
  }
};

TEST_F(PlayListCommandTest, EveryCommandKeepsItsRules) {
  struct Case {
    const char* item;
    MessageBoxAnswer answer;  // to the question whether to save; none is never asked
    std::string file;         // what the dialog gives, the first one for Yes
    Strings pictures;
    std::string current;
    bool dirty;
    bool restarts;
    std::size_t dialogs;
  };
  const std::string holiday = "C:\\Holiday.qvl";
  const Case cases[] = {
      {"mnuNew", MessageBoxAnswer::kCancel, "", {"b"}, "", true, false, 0},
      {"mnuNew", MessageBoxAnswer::kNo, "", {}, "", false, true, 0},
      {"mnuNew", MessageBoxAnswer::kYes, "", {}, "", false, true, 1},
      {"mnuNew", MessageBoxAnswer::kYes, "C:\\n", {}, "", false, true, 1},
      {"mnuOpen", MessageBoxAnswer::kCancel, holiday, {"b"}, "", true, false, 0},
      {"mnuOpen", MessageBoxAnswer::kNo, "", {"b"}, "", false, false, 1},
      {"mnuOpen", MessageBoxAnswer::kNo, holiday, {"C:\\p", "C:\\q"}, holiday, false, true, 1},
      {"mnuOpen", MessageBoxAnswer::kNo, "C:\\none", {}, "C:\\none", false, true, 1},
      {"mnuMergeList", MessageBoxAnswer::kNone, "", {"b"}, "", true, false, 1},
      {"mnuMergeList", MessageBoxAnswer::kNone, holiday, {"b", "C:\\p", "C:\\q"}, "", true, true, 1},
      {"mnuMergeList", MessageBoxAnswer::kNone, "C:\\none", {"b"}, "", true, true, 1},
      {"mnuSave", MessageBoxAnswer::kNone, "C:\\n", {"b"}, "C:\\n", false, false, 1},
      {"mnuSaveAs", MessageBoxAnswer::kNone, "", {"b"}, "", true, false, 1},
      {"mnuSaveAs", MessageBoxAnswer::kNone, "C:\\no\\n", {"b"}, "C:\\no\\n", true, false, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.item + std::string(" ") + std::to_string(static_cast<int>(c.answer)) + " " + c.file);
    OpenAndChange();
    desktop.dialogs.files.clear();
    desktop.boxes.shown.clear();
    if (c.answer != MessageBoxAnswer::kNone) desktop.boxes.Answer(c.answer);
    if (c.dialogs > 0) {
      desktop.dialogs.AnswerFile([&](const FileDialog&) {
        EXPECT_TRUE(IsPaused());
        return c.file;
      });
    }
    EXPECT_EQ(Restarts([&] { Choose(c.item); }), c.restarts);
    EXPECT_EQ(Names(0), c.pictures);
    EXPECT_EQ(form->CurPlayList(), c.current);
    EXPECT_EQ(form->PlayListDirty(), c.dirty);
    EXPECT_FALSE(IsPaused());
    EXPECT_FALSE(process.PreviewSuspended);
    EXPECT_EQ(desktop.dialogs.files.size(), c.dialogs);
    const bool fails = c.file == "C:\\none" || c.file == "C:\\no\\n";
    EXPECT_EQ(desktop.boxes.shown.size(), (c.answer == MessageBoxAnswer::kNone ? 0U : 1U) + (fails ? 1U : 0U));
    form->Unload();
  }
}

TEST_F(PlayListCommandTest, DialogsAreAskedForAsTheyAreKnown) {
  OpenAndChange();
  form->SetCurPlayList("C:\\Holiday.qvl");
  EXPECT_EQ(form->fraPlayList.Caption(), "Play List - [Holiday]");
  desktop.boxes.Answer(MessageBoxAnswer::kNo);
  for (const char* const item : {"mnuOpen", "mnuMergeList", "mnuSaveAs"}) Choose(item);
  EXPECT_EQ(desktop.boxes.shown.at(0).text,
            "Your Play List [Holiday] has been changed.  Do you want to save your changes?");
  for (std::size_t i = 0; i < 3; ++i) {
    const FileDialog& dialog = desktop.dialogs.files.at(i);
    EXPECT_EQ(dialog.save, i == 2);
    EXPECT_EQ(dialog.title, i == 2 ? "Save Play List" : "Select Play List");
    EXPECT_EQ(dialog.start_name, i == 2 ? "C:\\Holiday.qvl" : "");
    EXPECT_EQ(dialog.filter,
              (i == 2 ? "Play List Files" : "Play Lists") + std::string(" (*.qvl)|*.qvl|All Files(*.*)|*.*"));
    EXPECT_EQ(dialog.flags, i == 2 ? 0x280006U : 0x281004U);
  }
}

// The search that can't be made ends Open half-way: what is pruned is pruned, and the old name stays.
TEST_F(PlayListCommandTest, AFailureOfTheSearchEndsOpenWithoutAWord) {
  OpenAndChange();
  form->SetPlayListDirty(false);
  desktop.files.failures.FailCall(FileCall::kFind, 3, 0);
  desktop.dialogs.AnswerFile("C:\\Holiday.qvl");
  Choose("mnuOpen");
  EXPECT_THAT(Names(0), ElementsAre("C:\\p", "C:\\q"));
  EXPECT_THAT(Names(1), ElementsAre("C:\\s"));
  EXPECT_EQ(form->CurPlayList(), "");
  EXPECT_TRUE(desktop.boxes.shown.empty());
  EXPECT_FALSE(IsPaused());
}

}  // namespace
}  // namespace quorvale
