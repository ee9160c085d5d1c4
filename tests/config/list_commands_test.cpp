#include "config/config_fixture.h"
#include "config/list_editing.h"
#include "playlist/media_collections.h"

namespace quorvale {
namespace {

using ::testing::HasSubstr;

const std::string kNul(1, '\0');

TEST_F(ConfigTest, ListCommandsEditTheVisibleListAndRestartTheShow) {
  struct Case {
    int button;
    const char* item;
    std::string answer;  // of the dialog
    std::vector<int> selected;
    std::string items;
    int selected_after;  // -1 is none
    bool dirty;
  };
  const std::string old = "a b c d e";
  const Case cases[] = {
      {kAddFiles, "mnuAddFiles", "", {1}, old, 1, false},
      {kAddFiles, "mnuAddFiles", "C:\\New\\x.y.bmp", {1}, old + " x.y.bmp", 1, true},
      {kAddDirectory, "mnuAddDir", "", {}, old, -1, false},
      {kAddDirectory, "mnuAddDir", "  ", {}, old, -1, false},
      {kAddDirectory, "mnuAddDir", "C:\\New", {}, old + " C:\\New\\", -1, true},
      {kAddDirectory, "mnuAddDir", "D:\\", {}, old + " D:\\", -1, true},
      {kRemove, "mnuRemove", "", {0, 2}, "b d e", 0, true},
      {kRemove, "mnuRemove", "", {0, 1, 2, 3, 4}, "", -1, true},
      {kMoveUp, "mnuMoveUp", "", {1}, "b a c d e", 0, true},
      {kMoveDown, "mnuMoveDown", "", {3}, "a b c e d", 4, true},
  };
  for (const Case& c : cases) {
    for (const bool sounds : {false, true}) {
      SCOPED_TRACE(c.item + std::string(" ") + c.answer);
      sounds ? OpenWith("other", old) : OpenWith(old, "other");
      if (sounds) Choose("mnuViewSounds");
      Select(c.selected);
      bool was_paused = false;
      const auto user = [&](const auto& /*dialog*/) { return was_paused = IsPaused(), c.answer; };
      if (c.button == kAddFiles) desktop.dialogs.AnswerFile(user);
      if (c.button == kAddDirectory) desktop.dialogs.AnswerFolder(user);
      EXPECT_TRUE(Restarts([&] { sounds ? Choose(c.item) : Press(c.button); }));
      EXPECT_EQ(was_paused, c.button <= kAddDirectory);
      EXPECT_FALSE(IsPaused());
      EXPECT_TRUE(process.show.preview_suspended);
      EXPECT_EQ(Names(sounds ? 1 : 0), c.items);
      EXPECT_EQ(Names(sounds ? 0 : 1), "other");
      const ListBox& list = form->VisibleList();
      EXPECT_EQ(list.SelCount(), c.selected_after < 0 ? 0 : 1);
      EXPECT_TRUE(c.selected_after < 0 || list.Selected(c.selected_after));
      EXPECT_EQ(form->PlayListDirty(), c.dirty);
      form->Unload();
    }
  }
  EXPECT_THAT(desktop.dialogs.files[0].filter,
              ::testing::StartsWith("Pictures (*.bmp;*.gif;*.jpg;*.jpeg;*.wmf;*.emf)|"));
  EXPECT_EQ(desktop.dialogs.files[1].filter, "Sounds (*.wav)|*.wav|All Files(*.*)|*.*");
  process.options.Set("MoreKinds", "1");
  Open();
  Press(kAddFiles);
  EXPECT_THAT(desktop.dialogs.files.back().filter,
              HasSubstr("*.emf;*.png;*.webp;*.heic;*.heif;*.avif;*.jxl;*.tif;*.tiff)|"));
}

TEST_F(ConfigTest, SplitsTheFileDialogsResult) {
  std::string many = "C:\\Pics";
  std::string many_paths;
  for (int i = 0; i < 2000; ++i) {
    many += kNul + "picture " + std::to_string(i) + ".jpg";
    many_paths += "C:\\Pics\\picture " + std::to_string(i) + ".jpg|";
  }
  Open();
  const std::tuple<std::string, char, std::string> cases[] = {
      {"C:\\Pics\\a.b.bmp", '\\', "C:\\Pics\\a.b.bmp|"},
      {"C:\\a.bmp", '\\', "C:\\a.bmp|"},
      {"/pics/mine/.jpg", '/', "/pics/mine/.jpg|"},
      {"C:\\Pics" + kNul + "b" + kNul + "a", '\\', "C:\\Pics\\b|C:\\Pics\\a|"},
      {"C:\\" + kNul + "a" + kNul + "b", '\\', "C:\\\\a|C:\\\\b|"},
      {"/pics" + kNul + "a" + kNul + "b", '/', "/pics/a|/pics/b|"},
      {many, '\\', many_paths}};
  for (const auto& [chosen, separator, expected] : cases) {
    Collection names;
    std::string directory;
    form->file_dialog.file_name = chosen;
    ParseFileSelection(form->file_dialog, {separator}, names, directory);
    std::string paths;
    for (int i = 1; i <= names.Count(); ++i) {
      paths += EntryPath(MakeListEntry(names.Item(i), directory), {separator}) + "|";
    }
    EXPECT_EQ(paths, expected);
  }
}

// A move deselects the item before it selects it at its new place, which disables the button for a moment.
TEST_F(ConfigTest, UpAndDownKeepTheFocusWhileEnabled) {
  for (const auto& [button, selected, focus] : {std::tuple{kMoveUp, 2, "cmdImages(3)"},
                                                {kMoveUp, 1, "cmdImages(4)"},
                                                {kMoveDown, 1, "cmdImages(4)"},
                                                {kMoveDown, 2, "cmdOK"}}) {
    OpenWith("a b c d");
    Select({selected});
    form->list_buttons.at(static_cast<std::size_t>(button)).SetFocus();
    Press(button);
    EXPECT_EQ(desktop.widgets.focused, focus) << selected;
    form->Unload();
  }
}

TEST_F(ConfigTest, FocusThatMovedOnIsNotReclaimed) {
  OpenWith("a b c");
  Select({1});
  Button& up = form->list_buttons[kMoveUp];
  up.SetFocus();
  process.app.Dispatch([&] {
    up.SetEnabled(false);
    form->view_pictures.SetFocus();
    up.SetEnabled(true);
  });
  EXPECT_EQ(desktop.widgets.focused, "OptPicture");
  up.SetFocus();
  for (const bool enabled : {false, true}) process.app.Dispatch([&] { up.SetEnabled(enabled); });
  EXPECT_EQ(desktop.widgets.focused, "cmdImages(4)");
}

// An entry that stands for another path would vanish at the next start.
TEST_F(ConfigTest, NamesThatDoNotFitAnEntryAreReported) {
  const std::string longest(254, 'n');
  const std::string deepest = "C:\\" + std::string(253, 'd');  // with its separator it fills the columns
  desktop.files.AddDirectory("C:\\Folder");
  OpenWith("a");
  form->lists[0].UserDrop({"C:\\Folder", "C:\\x\ny.jpg", "C:\\" + longest, "C:\\n" + longest, deepest + "\\z",
                           deepest + "d\\z", "C:\\ b", "C:\\" + longest + "\\", ""});
  EXPECT_EQ(Names(0), "a C:\\Folder\\ " + longest + " z");
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  for (const char* const part : {"\nx?y.jpg: it has a line end in it.", "nnn...: it is longer than 254 characters.",
                                 "\nz: its directory is longer than 257 characters.",
                                 "\n b: a play list can't hold a blank at the start or the end of a name."}) {
    EXPECT_THAT(desktop.boxes.shown[0].text, HasSubstr(part));
  }
  EXPECT_TRUE(form->PlayListDirty());
}

TEST_F(ConfigTest, FullListReportsWhatIsNotAdded) {
  Open();
  while (form->lists[0].ListCount() < ListBox::kMostItems) form->lists[0].AddItem("");
  form->lists[0].UserDelete();  // nothing is selected
  form->lists[0].UserDrop(std::vector<std::string>(12, "C:\\a"));
  EXPECT_THAT(desktop.boxes.shown.at(0).text, HasSubstr("\na: the list is full.\n... and 2 more."));
  EXPECT_FALSE(form->PlayListDirty());
  EXPECT_FALSE(IsPaused());
}

}  // namespace
}  // namespace quorvale
