#include "config/config_fixture.h"
#include "playlist/play_list_file.h"

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
    process.show.preview_suspended = false;
  }
};

TEST_F(PlayListCommandTest, CommandsOpenMergeAndSaveFiles) {
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
    EXPECT_FALSE(IsPaused() || process.show.preview_suspended);
    const bool fails = file == "C:\\none" || file == "C:\\no\\n";
    EXPECT_EQ(desktop.boxes.shown.size(), (c.answer == kNone ? 0U : 1U) + (fails ? 1U : 0U));
    form->Unload();
  }
}

TEST_F(PlayListCommandTest, DialogsHaveTheirTitleFilterAndFlags) {
  Open();
  form->SetCurPlayList("C:\\Old.qvl");
  const std::string open_list = "open|Select Play List||Play Lists (*.qvl)|*.qvl|All Files(*.*)|*.*|0 281004 260";
  const std::string save_list =
      "save|Save Play List|C:\\Old.qvl|Play List Files (*.qvl)|*.qvl|All Files(*.*)|*.*|0 280006 260";
  const std::string masks = "*.bmp;*.gif;*.jpg;*.jpeg;*.wmf;*.emf";
  const std::string add = "open|Select One or More Files to Add||";
  const std::string add_files = "|All Files(*.*)|*.*|0 281204 10000";
  const std::pair<const char*, std::string> cases[] = {
      {"mnuOpen", open_list},
      {"mnuAddFiles", add + "Pictures (" + masks + ")|" + masks + add_files},
      {"mnuSaveAs", save_list},
      {"mnuMergeList", open_list}};
  for (const auto& [item, expected] : cases) {
    Choose(item);
    const FileDialog& dialog = desktop.dialogs.files.back();
    std::ostringstream asked;
    asked << (dialog.save ? "save|" : "open|") << dialog.title << "|" << dialog.start_name << "|" << dialog.filter
          << "|" << dialog.filter_index << std::hex << " " << dialog.flags << std::dec << " " << dialog.max_file_size;
    EXPECT_EQ(asked.str(), expected);
  }
  Choose("mnuAddDir");
  EXPECT_EQ(desktop.dialogs.folders.back(), "Select Directory");
}

TEST_F(PlayListCommandTest, MessagesHaveTheirTextAndIcon) {
  OpenAndChange();
  form->SetCurPlayList("C:\\Old.qvl");
  desktop.files.failures.FailCall(FileCall::kWriteFile, 1, 0);
  desktop.dialogs.AnswerFile("C:\\none");
  Choose("mnuSave");
  Choose("mnuMergeList");
  EXPECT_EQ(desktop.files.MostRead(), kMostPlayListBytes + 1);
  form->SetCurPlayList("");
  form->cancel.UserClick();
  const MessageBox expected[] = {
      {.text = "Unable to write to Play List File.  Can't be written: C:\\Old.qvl"},
      {.text = "Unable to Read Play List File.  No such file: C:\\none"},
      {.text = "Your Play List has been changed.  Do you want to save your changes?",
       .title = "Save Play List",
       .buttons = MessageBoxButtons::kYesNoCancel,
       .icon = MessageBoxIcon::kQuestion},
  };
  ASSERT_EQ(desktop.boxes.shown.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    const MessageBox& shown = desktop.boxes.shown[i];
    EXPECT_EQ(shown.text, expected[i].text);
    EXPECT_EQ(shown.title, expected[i].title);
    EXPECT_EQ(shown.buttons, expected[i].buttons);
    EXPECT_EQ(shown.icon, expected[i].icon);
  }
}

// Open ends half-way without a message: the lists are pruned so far, and the old name stays.
TEST_F(PlayListCommandTest, OpenEndsSilentlyWhenASearchFails) {
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
