#include "config/config_fixture.h"
#include "config/list_editing.h"
#include "playlist/media_collections.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kNul(1, '\0');

TEST_F(ConfigTest, EveryListCommandEditsTheListOnViewAndRestartsTheShow) {
  struct Case {
    int button;
    const char* item;
    std::string answer;  // of the dialog
    std::vector<int> selected;
    std::vector<std::string> items;
    std::vector<int> selected_after;
    bool dirty;
  };
  const std::vector<std::string> old = {"a", "b", "c", "d", "e"};
  const auto with = [&old](const std::string& name) {
    std::vector<std::string> items = old;
    items.push_back(name);
    return items;
  };
  const Case cases[] = {
      {kAddFiles, "mnuAddFiles", "", {1}, old, {1}, false},
      {kAddFiles, "mnuAddFiles", "C:\\New\\x.y.bmp", {1}, with("x.y.bmp"), {1}, true},
      {kAddDirectory, "mnuAddDir", "", {}, old, {}, false},
      {kAddDirectory, "mnuAddDir", "  ", {}, old, {}, false},
      {kAddDirectory, "mnuAddDir", "C:\\New", {}, with("C:\\New\\"), {}, true},
      {kAddDirectory, "mnuAddDir", "D:\\", {}, with("D:\\"), {}, true},
      {kRemove, "mnuRemove", "", {0, 2}, {"b", "d", "e"}, {0}, true},
      {kRemove, "mnuRemove", "", {0, 1, 2, 3, 4}, {}, {}, true},
      {kMoveUp, "mnuMoveUp", "", {1}, {"b", "a", "c", "d", "e"}, {0}, true},
      {kMoveDown, "mnuMoveDown", "", {3}, {"a", "b", "c", "e", "d"}, {4}, true},
  };
  for (const Case& c : cases) {
    for (const int list : {0, 1}) {
      for (const bool by_menu : {false, true}) {
        SCOPED_TRACE(c.item + std::string(" ") + c.answer);
        list == 0 ? OpenWith(old, {"other"}) : OpenWith({"other"}, old);
        if (list == 1) Choose("mnuViewSounds");
        Select(c.selected);
        bool was_paused = false;
        const auto user = [&](const auto& /*dialog*/) { return was_paused = IsPaused(), c.answer; };
        if (c.button == kAddFiles) desktop.dialogs.AnswerFile(user);
        if (c.button == kAddDirectory) desktop.dialogs.AnswerFolder(user);
        EXPECT_TRUE(Restarts([&] { by_menu ? Choose(c.item) : Press(c.button); }));
        EXPECT_EQ(was_paused, c.button <= kAddDirectory);
        EXPECT_FALSE(IsPaused());
        EXPECT_TRUE(process.PreviewSuspended);
        EXPECT_EQ(Names(list), c.items);
        EXPECT_THAT(Names(1 - list), ElementsAre("other"));
        std::vector<int> selected;
        for (int i = 0; i < form->ListOnView().ListCount(); ++i) {
          if (form->ListOnView().Selected(i)) selected.push_back(i);
        }
        EXPECT_EQ(selected, c.selected_after);
        EXPECT_EQ(form->PlayListDirty(), c.dirty);
        form->Unload();
      }
    }
  }
  EXPECT_EQ(desktop.dialogs.files[0].filter,
            "Pictures (*.bmp;*.gif;*.jpg;*.jpeg;*.wmf;*.emf)|*.bmp;*.gif;*.jpg;*.jpeg;*.wmf;*.emf|All Files(*.*)|*.*");
  EXPECT_EQ(desktop.dialogs.files[2].filter, "Sounds (*.wav)|*.wav|All Files(*.*)|*.*");
  EXPECT_EQ(desktop.dialogs.files[0].title, "Select One or More Files to Add");
  EXPECT_EQ(desktop.dialogs.files[0].flags, 0x281204U);
  EXPECT_EQ(desktop.dialogs.files[0].max_file_size, 10'000);
  EXPECT_EQ(desktop.dialogs.folders[0], "Select Directory");
}

TEST_F(ConfigTest, SelectionsOfFilesAreTakenApart) {
  std::string many = "C:\\Pics";
  std::vector<std::string> many_paths;
  for (int i = 0; i < 2000; ++i) {
    const std::string name = "picture " + std::to_string(i) + ".jpg";
    many += kNul + name;
    many_paths.push_back("C:\\Pics\\" + name);
  }
  const struct {
    std::string chosen;
    char separator;
    std::vector<std::string> paths;
  } cases[] = {{"C:\\Pics\\a.b.bmp", '\\', {"C:\\Pics\\a.b.bmp"}},
               {"C:\\a.bmp", '\\', {"C:\\a.bmp"}},
               {"C:\\Pics" + kNul + "b" + kNul + "a" + kNul + "c", '\\', {"C:\\Pics\\b", "C:\\Pics\\a", "C:\\Pics\\c"}},
               {"C:\\" + kNul + "a" + kNul + "b", '\\', {"C:\\\\a", "C:\\\\b"}},
               {"/pics" + kNul + "a" + kNul + "b", '/', {"/pics/a", "/pics/b"}},
               {many, '\\', many_paths}};
  Open();
  for (const auto& c : cases) {
    Collection names;
    std::string directory;
    form->CD1.FileName = c.chosen;
    ParseFileSelection(form->CD1, {c.separator}, names, directory);
    std::vector<std::string> paths;
    for (int i = 1; i <= names.Count(); ++i) {
      paths.push_back(EntryPath(MakeListEntry(names.Item(i), directory), {c.separator}));
    }
    EXPECT_EQ(paths, c.paths);
  }
}

// An entry that gives back another path than it was made of would vanish at the next start.
TEST_F(ConfigTest, NamesThatAnEntryCantHoldAreLeftOutAndTold) {
  const std::string longest(254, 'n');
  const std::string deepest = "C:\\" + std::string(253, 'd');  // with its separator it fills the columns
  desktop.files.AddDirectory("C:\\Folder");
  OpenWith({"a"});
  form->lstList[0].UserDrop({"C:\\Folder", "C:\\x\ny.jpg", "C:\\" + longest, "C:\\n" + longest, deepest + "\\z",
                             deepest + "d\\z", "C:\\ b", "C:\\" + longest + "\\", ""});
  EXPECT_THAT(Names(0), ElementsAre("a", "C:\\Folder\\", longest, "z"));
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  for (const char* const part : {"\nx?y.jpg: it has a line end in it.", "nnn...: it is longer than 254 characters.",
                                 "\nz: its directory is longer than 257 characters.", "\n b: "}) {
    EXPECT_THAT(desktop.boxes.shown[0].text, HasSubstr(part));
  }
  EXPECT_TRUE(form->PlayListDirty());
  EXPECT_FALSE(IsPaused());
}

TEST_F(ConfigTest, AFullListTakesNothingMoreAndTheWindowGoesOn) {
  Open();
  while (form->lstList[0].ListCount() < ListBox::kMostItems) form->lstList[0].AddItem("");
  form->lstList[0].UserDrop(std::vector<std::string>(12, "C:\\a"));
  EXPECT_THAT(desktop.boxes.shown.at(0).text, HasSubstr("\na: the list is full.\n... and 2 more."));
  EXPECT_FALSE(form->PlayListDirty());
  EXPECT_FALSE(IsPaused());
}

TEST_F(ConfigTest, DeleteRemovesWhatIsSelected) {
  OpenWith({"a", "b"});
  form->lstList[0].UserDelete();
  EXPECT_FALSE(form->PlayListDirty());
  Select({1});
  form->lstList[0].UserDelete();
  EXPECT_THAT(Names(0), ElementsAre("a"));
}

}  // namespace
}  // namespace quorvale
