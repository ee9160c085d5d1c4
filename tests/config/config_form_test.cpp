#include "config/config_form.h"

#include "config/application_info.h"
#include "config/config_fixture.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(ConfigTest, WhatCanBeDoneFollowsTheListOnViewAndItsSelection) {
  struct Case {
    std::vector<std::string> items;
    std::vector<int> selected;
    bool up;
    bool down;
    bool remove;
    const char* path;
  };
  for (const Case& c : {Case{{}, {}, false, false, false, ""},
                        {{"a"}, {}, false, false, false, ""},
                        {{"a"}, {0}, false, false, true, "C:\\Pics\\"},
                        {{"a", "b", "c"}, {}, false, false, false, ""},
                        {{"a", "b", "c"}, {0}, false, true, true, "C:\\Pics\\"},
                        {{"a", "b", "c"}, {1}, true, true, true, "C:\\Pics\\"},
                        {{"a", "b", "c"}, {2}, true, false, true, "C:\\Pics\\"},
                        {{"a", "b", "c"}, {0, 2}, false, false, true, ""}}) {
    for (const bool sounds : {false, true}) {
      OpenWith(sounds ? std::vector<std::string>{"x", "y"} : c.items, sounds ? c.items : std::vector<std::string>{});
      if (sounds) form->OptSound.UserClick();
      Select(c.selected);
      EXPECT_EQ(form->cmdImages[kMoveUp].Enabled(), c.up);
      EXPECT_EQ(ItemEnabled("mnuMoveUp"), c.up);
      EXPECT_EQ(form->cmdImages[kMoveDown].Enabled(), c.down);
      EXPECT_EQ(ItemEnabled("mnuMoveDown"), c.down);
      EXPECT_EQ(form->cmdImages[kRemove].Enabled(), c.remove);
      EXPECT_EQ(ItemEnabled("mnuRemove"), c.remove);
      EXPECT_EQ(form->lblPath.Caption(), c.path);
      form->Unload();
    }
  }
}

TEST_F(ConfigTest, EachListKeepsItsSelectionBehindTheOther) {
  OpenWith({"a", "b"}, {"s"});
  Select({1});
  Choose("mnuViewSounds");
  EXPECT_EQ(desktop.widgets.focused, "OptSound");
  EXPECT_FALSE(form->lstList[0].Visible());
  EXPECT_TRUE(form->lstList[1].Visible());
  EXPECT_FALSE(form->cmdImages[kRemove].Enabled());
  Choose("mnuViewPics");
  EXPECT_TRUE(form->lstList[0].Visible());
  EXPECT_FALSE(form->lstList[1].Visible());
  EXPECT_TRUE(form->cmdImages[kMoveUp].Enabled());
  EXPECT_FALSE(form->cmdImages[kMoveDown].Enabled());
}

TEST_F(ConfigTest, WhatIsGoneSinceTheLastRunIsGoneFromTheListsAndFromTheStoreOnOk) {
  Store("PictureFiles", {"a", "gone", "b"});
  Store("SoundFiles", {"s"});
  desktop.files.Remove("C:\\Pics\\gone");
  desktop.files.AddDirectory("C:\\Empty");
  process.Settings.SaveSetting("SoundFiles", "File1", MakeListEntry("C:\\Empty\\", "C:\\Empty\\"));
  process.Settings.SaveSetting("SoundFiles", "File2", MakeListEntry("C:\\No\\", "C:\\No\\"));
  process.Settings.SaveSetting("SoundFiles", "File3", "C:\\Pics\\a");
  Open();
  EXPECT_THAT(Names(0), ElementsAre("a", "b"));
  EXPECT_THAT(Names(1), ElementsAre("s", "C:\\Empty\\", "C:\\Pics\\a"));
  EXPECT_FALSE(form->PlayListDirty());
  EXPECT_THAT(Stored("PictureFiles"), ElementsAre("a", "gone", "b"));
  form->cmdOK.UserClick();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(Stored("PictureFiles"), ElementsAre("a", "b"));
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

// A box at load must not cost the window, however long it stays up, and the step after it runs.
TEST_F(ConfigTest, EachFailureOfTheLoadIsToldAndTheNextStatementRuns) {
  Store("PictureFiles", {"a"});
  Store("SoundFiles", {"s"});
  process.SetOption("TransSpeed", "99999999999");
  desktop.files.failures.FailCall(FileCall::kFind, 1, 0);
  for (int i = 0; i < 2; ++i) {
    desktop.boxes.Answer([this](const MessageBox&) {
      desktop.queue.Advance(5000);
      return MessageBoxAnswer::kOk;
    });
  }
  Open();
  ASSERT_EQ(desktop.boxes.shown.size(), 2U);
  EXPECT_EQ(desktop.boxes.shown[0].text, "sProcNm=GetConfiguration(Me) Num=8 Src=MemoryFileSystem");
  EXPECT_EQ(desktop.boxes.shown[0].title, "");
  EXPECT_EQ(desktop.boxes.shown[1].text, "sProcNm=GetConfiguration(Me) Num=3 Src=Numbers");
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_THAT(Names(0), ElementsAre("a"));
  EXPECT_THAT(Names(1), ElementsAre("s"));
}

TEST_F(ConfigTest, OkWritesTheStoreAndTheFileInHandEvenWithoutChanges) {
  process.SetOption("PlayList", "C:\\My & Yours.x.qvl");
  OpenWith({"a"});
  EXPECT_EQ(form->fraPlayList.Caption(), "Play List - [My && Yours]");
  desktop.files.failures.FailCall(FileCall::kWriteFile, 1, 0);
  desktop.boxes.Answer(MessageBoxAnswer::kOk);
  form->cmdOK.UserClick();
  EXPECT_EQ(desktop.boxes.shown.at(0).text,
            "Unable to write to Play List File.  Can't be written: C:\\My & Yours.x.qvl");
  EXPECT_FALSE(form->IsLoaded()) << "the steps go on";
  Open().cmdOK.UserClick();
  EXPECT_EQ(desktop.files.ReadFile("C:\\My & Yours.x.qvl"), "P:" + MakeListEntry("a", "C:\\Pics\\") + "\r\n");
  EXPECT_EQ(process.Option("PlayList", ""), "C:\\My & Yours.x.qvl");
}

TEST_F(ConfigTest, LeavingAsksOnlyForChangesAndDoesAsTheUserSays) {
  struct Case {
    const char* way;
    bool dirty;
    MessageBoxAnswer answer;
    const char* save_as;  // what the dialog gives; empty is Cancel
    bool closed;
    std::vector<std::string> stored;
  };
  const std::vector<std::string> old = {"a", "b"};
  const std::vector<std::string> edited = {"b"};
  for (const Case& c : {Case{"cmdCancel", false, MessageBoxAnswer::kNone, "", true, old},
                        {"cmdCancel", true, MessageBoxAnswer::kYes, "C:\\l.qvl", true, edited},
                        {"cmdCancel", true, MessageBoxAnswer::kYes, "", false, old},
                        {"cmdCancel", true, MessageBoxAnswer::kYes, "C:\\Nowhere\\l.qvl", false, old},
                        {"mnuExit", true, MessageBoxAnswer::kNo, "", true, old},
                        {"mnuExit", true, MessageBoxAnswer::kCancel, "", false, old},
                        {"close box", true, MessageBoxAnswer::kNone, "", true, old}}) {
    SCOPED_TRACE(std::string(c.way) + " " + std::to_string(static_cast<int>(c.answer)) + " " + c.save_as);
    desktop.boxes.shown.clear();
    process.SetOption("PlayList", "");
    OpenWith(old);
    if (c.dirty) {
      Select({0});
      Press(kRemove);
    }
    if (c.answer != MessageBoxAnswer::kNone) desktop.boxes.Answer(c.answer);
    if (c.answer == MessageBoxAnswer::kYes) desktop.dialogs.AnswerFile(c.save_as);
    if (c.way == std::string("cmdCancel")) form->cmdCancel.UserClick();
    if (c.way == std::string("mnuExit")) Choose("mnuExit");
    if (c.way == std::string("close box")) desktop.RequestClose(form->Hwnd());
    EXPECT_EQ(form->IsLoaded(), !c.closed);
    EXPECT_EQ(Stored("PictureFiles"), c.stored);
    EXPECT_EQ(desktop.boxes.Waiting(), 0);
    EXPECT_EQ(desktop.boxes.shown.empty(), c.answer == MessageBoxAnswer::kNone);
    form->Unload();
  }
}

TEST_F(ConfigTest, HelpIsOpenedOrItsFailureTold) {
  Open();
  const auto asked = [this](const std::string& command) {
    const std::string call = desktop.calls.empty() ? "" : desktop.calls.back();
    return call.starts_with("WinHelp " + std::to_string(form->Hwnd()) + " " + kHelpFile + " " + command + " ");
  };
  Choose("mnuHelpContents");
  EXPECT_TRUE(asked("3"));
  Choose("mnuHelpSearchForHelpOn");
  EXPECT_TRUE(asked("261"));
  desktop.RequestHelp(form->Hwnd());
  EXPECT_TRUE(asked("3"));
  desktop.programs.found = false;
  desktop.boxes.Answer(MessageBoxAnswer::kOk);
  Choose("mnuHelpContents");
  EXPECT_EQ(desktop.boxes.shown.at(0).text, "File not found");
}

}  // namespace
}  // namespace quorvale
