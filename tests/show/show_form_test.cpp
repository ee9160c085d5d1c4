#include "show/show_form.h"

#include "playlist/media_collections.h"
#include "support/show_fixture.h"
#include "toolkit/list_box.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A form with what a show needs, and the two list boxes.
class ListForm : public ShowForm {
 public:
  explicit ListForm(Process& process)
      : ShowForm(process, "ListForm", WindowKind::kDialog, "Lists", {"Small Fonts", 4}) {}
  ListBox pictures{*this, {.name = "lstList(0)"}};
  ListBox sounds{*this, {.name = "lstList(1)"}};

 protected:
  void tmrSwitch_Timer() override {}
};

class StartShowTest : public ShowTest {
 protected:
  void SetUp() override {
    form = std::make_shared<ListForm>(process);
    form->Load();
    desktop.files.AddFile("C:\\d\\song.wav");
    desktop.files.AddFile("C:\\d\\a.jpg");
  }

  void Store(const std::string& section, const std::vector<std::string>& entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      process.settings.SaveSetting(section, "File" + std::to_string(i), entries[i]);
    }
  }

  std::shared_ptr<ListForm> form;
};

TEST_F(StartShowTest, InitShowTakesStoreOrListBoxes) {
  Store("PictureFiles", {"C:\\stored.jpg"});
  Store("SoundFiles", {"C:\\d\\"});
  form->pictures.AddItem(MakeListEntry("listed.jpg", "C:\\"));
  InitShow(process, *form);
  EXPECT_THAT(process.show.picture_list.TakeItems(), ElementsAre("C:\\stored.jpg"));
  EXPECT_THAT(process.show.sound_list.TakeItems(), ElementsAre("C:\\d\\song.wav"));
  InitShow(process, *form, form->pictures, form->sounds);
  EXPECT_THAT(process.show.picture_list.TakeItems(), ElementsAre("C:\\listed.jpg"));
  EXPECT_THAT(process.show.sound_list.TakeItems(), IsEmpty());
}

TEST_F(StartShowTest, SubFoldersAddsToBothLists) {
  desktop.files.AddFile("C:\\d\\below\\b.jpg");
  desktop.files.AddFile("C:\\d\\below\\b.wav");
  for (const char* section : {"PictureFiles", "SoundFiles"}) Store(section, {"C:\\d\\"});
  for (ListBox* list : {&form->pictures, &form->sounds}) list->AddItem(MakeListEntry("C:\\d\\", "C:\\d\\"));
  for (const auto& [value, count] : {std::pair{"", 1}, {"0", 1}, {"2", 1}, {"on", 1}, {"1", 2}}) {
    process.options.Set("SubFolders", value);
    for (const bool from_store : {true, false}) {
      from_store ? InitShow(process, *form) : InitShow(process, *form, form->pictures, form->sounds);
      EXPECT_EQ(process.show.picture_list.Count(), count) << value;
      EXPECT_EQ(process.show.sound_list.Count(), count) << value;
    }
  }
}

TEST_F(StartShowTest, MoreKindsAreFoundInDirectoriesAndTrees) {
  for (const char* file : {"a.heic", "below\\b.JXL", "below\\c.tiff"})
    desktop.files.AddFile(std::string("C:\\k\\") + file);
  Store("PictureFiles", {"C:\\k\\", "C:\\k\\a.heic"});
  for (const char* entry : {"C:\\k\\", "C:\\k\\a.heic"}) form->pictures.AddItem(entry);
  for (const auto& [more_kinds, sub_folders, count] : {std::tuple{"0", "1", 1}, {"1", "0", 2}, {"1", "1", 4}}) {
    SetOptions({{"MoreKinds", more_kinds}, {"SubFolders", sub_folders}});
    for (const bool from_store : {true, false}) {
      from_store ? InitShow(process, *form) : InitShow(process, *form, form->pictures, form->sounds);
      EXPECT_EQ(process.show.picture_list.Count(), count) << more_kinds << sub_folders;
    }
  }
}

TEST_F(StartShowTest, OrderSortsThePicturesUnlessTheyAreRandom) {
  std::vector<std::string> listed;
  for (int i = 0; i < 20; ++i) {
    listed.push_back("C:\\" + std::to_string(i));
    desktop.files.AddFile(listed.back());
    desktop.files.SetDate(listed.back(), i);
  }
  for (const char* section : {"PictureFiles", "SoundFiles"}) Store(section, listed);
  const std::vector<std::string> reversed(listed.rbegin(), listed.rend());
  for (const auto& [value, pictures] : {std::pair{"", listed}, {"newest first", listed}, {"Newest First", reversed}}) {
    process.options.Set("Order", value);
    InitShow(process, *form);
    EXPECT_EQ(process.show.picture_list.TakeItems(), pictures) << value;
    EXPECT_EQ(process.show.sound_list.TakeItems(), listed);
  }
  const auto random = [&](const char* order) {
    SetOptions({{"PicRandom", "1"}, {"Order", order}});
    InitShow(process, *form);
    return process.show.picture_list.TakeItems();
  };
  EXPECT_EQ(random("Oldest First"), random("Newest First"));
}

TEST_F(StartShowTest, InitShowTakesOverColourSpeedAndTimer) {
  InitShow(process, *form);
  EXPECT_EQ(process.show.transition_speed, 20);
  EXPECT_EQ(form->PicBase.BackColor(), kBlack);
  SetOptions({{"BackColor", "16711680"}, {"TransSpeed", "7.5"}});
  form->tmrSwitch.SetInterval(9000);
  InitShow(process, *form);
  EXPECT_EQ(process.show.transition_speed, 8);
  EXPECT_EQ(form->PicBase.BackColor(), 0xFF0000U);
  EXPECT_EQ(form->PicBase.FillColor(), 0xFF0000U);
  EXPECT_EQ(form->tmrSwitch.Interval(), 500);
  EXPECT_TRUE(form->tmrSwitch.Enabled());
}

TEST_F(StartShowTest, TheValueOneShufflesByTheClock) {
  const auto order = [&](std::uint64_t seed, const char* pictures, const char* sounds) {
    desktop.host.clock_seed = seed;
    SetOptions({{"PicRandom", pictures}, {"SoundRandom", sounds}});
    InitShow(process, *form);
    return std::pair(process.show.picture_list.TakeItems(), process.show.sound_list.TakeItems());
  };
  std::vector<std::string> entries;
  for (int i = 0; i < 50; ++i) entries.push_back("C:\\" + std::to_string(i));
  for (const char* section : {"PictureFiles", "SoundFiles"}) Store(section, entries);
  for (const char* const value : {"", "2", "1.5"})
    EXPECT_EQ(order(1, value, value), std::pair(entries, entries)) << value;
  const auto [pictures, sounds] = order(1, "1", "1");
  EXPECT_NE(pictures, entries);
  EXPECT_THAT(pictures, testing::UnorderedElementsAreArray(entries));
  EXPECT_EQ(pictures, sounds) << "both draw from the same beginning";
  EXPECT_NE(order(2, "1", "1").first, pictures);
  EXPECT_EQ(order(1, "0", "1"), std::pair(entries, sounds));
  desktop.host.show_seed = 2;
  for (const auto& [mode, monitors] : {std::pair{RunMode::kPreview, "A Picture on Each"}, {RunMode::kShow, ""}}) {
    process.mode = mode;
    process.options.Set("Monitors", monitors);
    EXPECT_EQ(order(1, "1", "1").first, pictures) << "no show on several monitors";
  }
}

TEST_F(StartShowTest, AnOptionOutOfRangeStopsTheStart) {
  Store("PictureFiles", {"C:\\new.jpg"});
  SetOptions({{"LastPicture", "7"}, {"BackColor", "99999999999"}});
  form->tmrSwitch.SetInterval(9000);
  form->tmrSwitch.SetEnabled(true);
  EXPECT_THROW(InitShow(process, *form), Failure);
  EXPECT_FALSE(form->tmrSwitch.Enabled());
  EXPECT_EQ(process.show.picture_list.Count(), 1);
  SetOptions({{"BackColor", "&H0000FF&"}, {"TransSpeed", "99999999999"}});
  EXPECT_THROW(InitShow(process, *form), Failure);
  EXPECT_TRUE(form->tmrSwitch.Enabled());
  EXPECT_EQ(form->PicBase.BackColor(), 0xFFU);
  EXPECT_EQ(process.show.transition_speed, 0);
  EXPECT_EQ(process.options.Get("LastPicture", ""), "7");
}

}  // namespace
}  // namespace quorvale
