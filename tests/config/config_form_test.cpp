#include "config/config_form.h"

#include <map>

#include "base/application_info.h"
#include "config/config_fixture.h"

namespace quorvale {
namespace {

TEST_F(ConfigTest, CommandsFollowTheVisibleListAndItsSelection) {
  const std::tuple<const char*, std::vector<int>, const char*> cases[] = {{"", {}, ""},
                                                                          {"a", {}, ""},
                                                                          {"a", {0}, "C:\\Pics\\ remove"},
                                                                          {"a b c", {}, ""},
                                                                          {"a b c", {0}, "C:\\Pics\\ remove down"},
                                                                          {"a b c", {1}, "C:\\Pics\\ remove up down"},
                                                                          {"a b c", {2}, "C:\\Pics\\ remove up"},
                                                                          {"a b c", {0, 2}, " remove"}};
  for (const auto& [items, selected, expected] : cases) {
    for (const bool sounds : {false, true}) {
      sounds ? OpenWith("x y", items) : OpenWith(items, "x y");
      Choose(sounds ? "mnuViewSounds" : "mnuViewPics");
      EXPECT_EQ(desktop.widgets.focused, sounds ? "OptSound" : "OptPicture");
      Select(selected);
      // A look at the other list changes nothing.
      (sounds ? form->view_pictures : form->view_sounds).UserClick();
      EXPECT_FALSE(form->list_buttons[kRemove].Enabled());
      (sounds ? form->view_sounds : form->view_pictures).UserClick();
      EXPECT_EQ(form->lists[0].Visible(), !sounds);
      EXPECT_EQ(form->lists[1].Visible(), sounds);
      std::string enabled = form->path_line.Caption();
      for (const auto& [button, item, word] : {std::tuple{kRemove, "mnuRemove", " remove"},
                                               {kMoveUp, "mnuMoveUp", " up"},
                                               {kMoveDown, "mnuMoveDown", " down"}}) {
        const bool is_enabled = form->list_buttons.at(static_cast<std::size_t>(button)).Enabled();
        EXPECT_EQ(form->menus.Item(item).Enabled(), is_enabled);
        if (is_enabled) enabled += word;
      }
      EXPECT_EQ(enabled, expected);
      form->Unload();
    }
  }
}

TEST_F(ConfigTest, OkRemovesMissingFilesFromTheStore) {
  Store("PictureFiles", "a gone gone2 folder b");
  Store("SoundFiles", "s");
  for (const char* const name : {"gone", "gone2", "folder"}) {
    desktop.files.Remove(std::string("C:\\Pics\\") + name);
  }
  desktop.files.AddDirectory("C:\\Pics\\folder");
  desktop.files.AddDirectory("C:\\Empty");
  process.settings.SaveSetting("SoundFiles", "File1", MakeListEntry("C:\\Empty\\", "C:\\Empty\\"));
  process.settings.SaveSetting("SoundFiles", "File2", MakeListEntry("C:\\No\\", "C:\\No\\"));
  process.settings.SaveSetting("SoundFiles", "File3", "C:\\Pics\\a");
  Open();
  EXPECT_EQ(Names(0), "a b");
  EXPECT_EQ(Names(1), "s C:\\Empty\\ C:\\Pics\\a");
  EXPECT_FALSE(form->PlayListDirty());
  EXPECT_EQ(Stored("PictureFiles"), "a gone gone2 folder b");
  form->ok.UserClick();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(Stored("PictureFiles"), "a b");
  EXPECT_TRUE(desktop.boxes.shown.empty());
}

// The preview must not tick, and close the window, while a box is open at load.
TEST_F(ConfigTest, LoadReportsEachFailureAndGoesOn) {
  Store("PictureFiles", "a");
  Store("SoundFiles", "s");
  process.options.Set("TransSpeed", "99999999999");
  desktop.files.failures.FailCall(FileCall::kFind, 1, 0);
  for (int i = 0; i < 2; ++i) {
    desktop.boxes.Answer([this](const MessageBox&) { return desktop.queue.Advance(5000), MessageBoxAnswer::kOk; });
  }
  Open();
  ASSERT_EQ(desktop.boxes.shown.size(), 2U);
  EXPECT_EQ(desktop.boxes.shown[0].text, "sProcNm=GetConfiguration(Me) Num=8 Src=MemoryFileSystem");
  EXPECT_EQ(desktop.boxes.shown[0].title, "");
  EXPECT_EQ(desktop.boxes.shown[1].text, "sProcNm=GetConfiguration(Me) Num=3 Src=Numbers");
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_EQ(Names(0) + Names(1), "as");
}

TEST_F(ConfigTest, OkWritesStoreAndFileEvenWithoutChanges) {
  process.options.Set("PlayList", "C:\\My & Yours.x.qvl");
  OpenWith("a");
  EXPECT_EQ(form->list_frame.Caption(), "Play List - [My && Yours]");
  desktop.files.failures.FailCall(FileCall::kWriteFile, 1, 0);
  form->ok.UserClick();
  EXPECT_EQ(desktop.boxes.shown.at(0).text,
            "Unable to write to Play List File.  Can't be written: C:\\My & Yours.x.qvl");
  EXPECT_FALSE(form->IsLoaded()) << "a failed file does not keep the window open";
  desktop.registry.single_writes = 0;
  Open().ok.UserClick();
  EXPECT_EQ(desktop.registry.single_writes, 0) << "all in one transaction";
  EXPECT_EQ(desktop.files.ReadFile("C:\\My & Yours.x.qvl", std::string::npos),
            "P:" + MakeListEntry("a", "C:\\Pics\\") + "\r\n");
  EXPECT_EQ(process.options.Get("PlayList", ""), "C:\\My & Yours.x.qvl");
}

// A list that looks empty because the store is locked must not replace the stored one.
TEST_F(ConfigTest, OkDoesNotReplaceUnreadLists) {
  // The first entry of either list, and the play list's path.
  for (const int failing_read : {1, 4, 6}) {
    SCOPED_TRACE(failing_read);
    Store("PictureFiles", "a b");
    Store("SoundFiles", "s");
    process.options.Set("PlayList", "C:\\Kept.qvl");
    desktop.boxes.shown.clear();
    desktop.registry.failures.FailCall(RegistryCall::kOpen, failing_read, kErrorReadFault);
    Open();
    ASSERT_EQ(desktop.boxes.shown.size(), 1U);
    EXPECT_THAT(desktop.boxes.shown[0].text, ::testing::StartsWith("Your settings can't be read."));
    form->ok.UserClick();
    ASSERT_EQ(desktop.boxes.shown.size(), 2U);
    EXPECT_THAT(desktop.boxes.shown[1].text, ::testing::StartsWith("Nothing was saved:"));
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(Stored("PictureFiles") + Stored("SoundFiles"), "a bs");
    EXPECT_EQ(process.options.Get("PlayList", ""), "C:\\Kept.qvl");
    form->cancel.UserClick();
    EXPECT_FALSE(form->IsLoaded());
  }
}

TEST_F(ConfigTest, FailedSaveKeepsTheWindowAndTheEdit) {
  for (const RegistryCall call : {RegistryCall::kBegin, RegistryCall::kSet, RegistryCall::kCommit}) {
    OpenWith("a b");
    Select({0});
    Press(kRemove);
    desktop.boxes.shown.clear();
    desktop.registry.failures.FailEvery(call, kErrorWriteFault);
    form->ok.UserClick();
    ASSERT_EQ(desktop.boxes.shown.size(), 1U);
    EXPECT_THAT(desktop.boxes.shown[0].text, ::testing::StartsWith("Your settings can't be saved"));
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(Names(0), "b");
    EXPECT_EQ(Stored("PictureFiles"), "a b");
    desktop.registry.failures.Forget();
    form->ok.UserClick();
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_EQ(Stored("PictureFiles"), "b");
    EXPECT_EQ(desktop.boxes.shown.size(), 1U);
  }
}

TEST_F(ConfigTest, KeepsEntriesBeyondTheListBox) {
  desktop.files.AddFile("C:\\Pics\\a");
  const std::string entry = MakeListEntry("a", "C:\\Pics\\");
  const auto key = [](int number) { return "File" + std::to_string(number); };
  for (int i = 0; i < ListBox::kMostItems; ++i) process.settings.SaveSetting("PictureFiles", key(i), entry);
  process.settings.SaveSetting("PictureFiles", key(ListBox::kMostItems), "the last");
  process.settings.SaveSetting("SoundFiles", "File0", entry);
  Open();
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_THAT(desktop.boxes.shown[0].text, ::testing::StartsWith("A Play List is full"));
  EXPECT_EQ(Names(1), "a");
  form->lists[0].UserSelect({0, 5});
  Press(kRemove);
  form->ok.UserClick();
  EXPECT_EQ(process.settings.GetSetting("PictureFiles", key(ListBox::kMostItems - 2), "none"), "the last");
  EXPECT_EQ(process.settings.GetSetting("PictureFiles", key(ListBox::kMostItems - 1), "none"), "none");
  EXPECT_EQ(Stored("SoundFiles"), "a");
}

TEST_F(ConfigTest, ExitAsksToSaveChanges) {
  // An empty name cancels the dialog.
  const std::tuple<bool, MessageBoxAnswer, const char*, bool, const char*> cases[] = {
      {false, MessageBoxAnswer::kNone, "", true, "a b"},
      {true, MessageBoxAnswer::kYes, "C:\\l.qvl", true, "b"},
      {true, MessageBoxAnswer::kYes, "", false, "a b"},
      {true, MessageBoxAnswer::kYes, "C:\\Nowhere\\l.qvl", false, "a b"},
      {true, MessageBoxAnswer::kNo, "", true, "a b"},
      {true, MessageBoxAnswer::kCancel, "", false, "a b"}};
  for (const auto& [dirty, answer, save_as, closed, stored] : cases) {
    SCOPED_TRACE(std::to_string(static_cast<int>(answer)) + save_as);
    process.options.Set("PlayList", "");
    OpenWith("a b");
    Select({0});
    if (dirty) Press(kRemove);
    if (answer != MessageBoxAnswer::kNone) desktop.boxes.Answer(answer);
    if (answer == MessageBoxAnswer::kYes) desktop.dialogs.AnswerFile(save_as);
    form->cancel.UserClick();
    EXPECT_EQ(form->IsLoaded(), !closed);
    EXPECT_EQ(Stored("PictureFiles"), stored);
    EXPECT_EQ(desktop.boxes.Waiting(), 0);
    if (form->IsLoaded()) desktop.RequestClose(form->Hwnd());  // asks nothing
    EXPECT_FALSE(form->IsLoaded());
  }
  EXPECT_EQ(desktop.boxes.shown.size(), 6U) << "five questions and a failure";
}

TEST_F(ConfigTest, OpensHelpOrReportsAFailure) {
  Open();
  const auto asked = [this](const std::string& command) {
    return desktop.calls.back().starts_with("WinHelp " + std::to_string(form->Hwnd()) + " " + kHelpFile + command);
  };
  Choose("mnuHelpSearchForHelpOn");
  EXPECT_TRUE(asked(" 261 "));
  desktop.RequestHelp(form->Hwnd());
  EXPECT_TRUE(asked(" 3 "));
  desktop.programs.found = false;
  Choose("mnuHelpContents");
  EXPECT_EQ(desktop.boxes.shown.at(0).text, "File not found");
  form->ShowHelp("", 3);
  const MessageBox& box = desktop.boxes.shown.at(1);
  EXPECT_EQ(box.text, "Unable to display Help Contents. There is no Help associated with this project.");
  EXPECT_EQ(box.title, "Screen Saver Properties");
  EXPECT_EQ(box.icon, MessageBoxIcon::kInformation);
}

TEST_F(ConfigTest, TabOrderEndsWithAddDirectory) {
  Open();
  std::map<int, std::string> order;
  form->ForEach<Widget>([&](const Widget& control) {
    const bool is_label = dynamic_cast<const Label*>(&control) != nullptr;
    if (control.Design().tab_index >= 0 && control.Visible() && !is_label)
      order[control.Design().tab_index] = control.Name();
  });
  std::string names;
  for (const auto& [index, name] : order) names += name + " ";
  EXPECT_EQ(names,
            "OptPicture OptSound lstList(0) cmdImages(0) cmdImages(2) cmdImages(3) cmdImages(4) cmdOK cmdCancel "
            "cmdImages(1) ");
}

}  // namespace
}  // namespace quorvale
