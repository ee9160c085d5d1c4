#include "playlist/media_collections.h"

#include "playlist/list_store.h"
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
  ListBox pictures{*this, "lstList(0)"};
  ListBox sounds{*this, "lstList(1)"};

 protected:
  void tmrSwitch_Timer() override {}
};

class MediaCollectionsTest : public ShowTest {
 protected:
  void SetUp() override {
    form = std::make_shared<ListForm>(process);
    form->Load();
    for (const char* name : {"b.JPG", "a.jpg", "c.bmp", "d.jpeg", "e.txt", "f.gif", "z.emf", "song.wav"}) {
      desktop.files.AddFile(std::string("C:\\d\\") + name);
    }
    desktop.files.AddFile("C:\\d\\hidden.jpg", "", kAttributeHidden);
    desktop.files.AddFile("C:\\d\\system.jpg", "", kAttributeSystem);
    desktop.files.AddDirectory("C:\\d\\sub.jpg");
  }

  void Store(const std::string& section, const std::vector<std::string>& entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      process.Settings.SaveSetting(section, "File" + std::to_string(i), entries[i]);
    }
  }
  std::vector<std::string> PicturesOf(const std::vector<std::string>& entries) {
    process.Settings.DeleteSetting("PictureFiles");
    Store("PictureFiles", entries);
    return FillFromSettings(process, "PictureFiles", kPictureMask).TakeItems();
  }

  std::shared_ptr<ListForm> form;
};

TEST_F(MediaCollectionsTest, DirectoriesComeInTheOrderOfTheMaskAndThenByName) {
  EXPECT_THAT(PicturesOf({"C:\\x.txt", MakeListEntry("C:\\d\\", "C:\\d\\"), "C:\\y.jpg"}),
              ElementsAre("C:\\x.txt", "C:\\d\\c.bmp", "C:\\d\\f.gif", "C:\\d\\a.jpg", "C:\\d\\b.JPG", "C:\\d\\d.jpeg",
                          "C:\\d\\z.emf", "C:\\y.jpg"));
  EXPECT_EQ(PicturesOf({"C:\\d\\", "C:\\d\\"}).size(), 12U);
}

TEST_F(MediaCollectionsTest, AListEndsAtAGapOrAtTheEndMark) {
  EXPECT_THAT(PicturesOf({"C:\\a", "EOF", "C:\\b"}), ElementsAre("C:\\a"));
  Store("PictureFiles", {"C:\\a", "C:\\b", "C:\\c"});
  process.Settings.DeleteSetting("PictureFiles", "File1");
  EXPECT_EQ(FillFromSettings(process, "PictureFiles", kPictureMask).Count(), 1);
  EXPECT_EQ(FillFromSettings(process, "Nothing", kPictureMask).Count(), 0);
}

TEST_F(MediaCollectionsTest, ADirectoryThatCantBeReadCostsItsOwnFilesAlone) {
  EXPECT_THAT(PicturesOf({"C:\\gone\\", "C:\\y.jpg"}), ElementsAre("C:\\y.jpg"));
  desktop.files.MakeUnreadable("C:\\d", 1);
  EXPECT_THAT(PicturesOf({"C:\\d\\", "C:\\y.jpg"}), ElementsAre("C:\\d\\c.bmp", "C:\\y.jpg"));
}

TEST_F(MediaCollectionsTest, InitShowTakesStoreOrListBoxes) {
  Store("PictureFiles", {"C:\\stored.jpg"});
  Store("SoundFiles", {"C:\\d\\"});
  form->pictures.AddItem(MakeListEntry("listed.jpg", "C:\\"));
  InitShow(process, 1, *form);
  EXPECT_THAT(process.PictureList.TakeItems(), ElementsAre("C:\\stored.jpg"));
  EXPECT_THAT(process.SoundList.TakeItems(), ElementsAre("C:\\d\\song.wav"));
  InitShow(process, 0, *form);
  EXPECT_THAT(process.PictureList.TakeItems(), ElementsAre("C:\\listed.jpg"));
  EXPECT_THAT(process.SoundList.TakeItems(), IsEmpty());
}

TEST_F(MediaCollectionsTest, InitShowTakesOverColourSpeedAndTimer) {
  InitShow(process, 1, *form);
  EXPECT_EQ(process.TransitionSpeed, 20);
  EXPECT_EQ(form->PicBase.BackColor(), kBlack);
  process.SetOption("BackColor", "16711680");
  process.SetOption("TransSpeed", "7.5");
  form->tmrSwitch.SetInterval(9000);
  InitShow(process, 1, *form);
  EXPECT_EQ(process.TransitionSpeed, 8);
  EXPECT_EQ(form->PicBase.BackColor(), 0xFF0000U);
  EXPECT_EQ(form->PicBase.FillColor(), 0xFF0000U);
  EXPECT_EQ(form->tmrSwitch.Interval(), 500);
  EXPECT_TRUE(form->tmrSwitch.Enabled());
}

TEST_F(MediaCollectionsTest, OnlyAOneShuffles) {
  std::vector<std::string> entries;
  for (int i = 0; i < 50; ++i) entries.push_back("C:\\" + std::to_string(i));
  Store("PictureFiles", entries);
  for (const auto& [value, shuffled] : {std::pair{"", false}, {"2", false}, {"1.5", false}, {"1", true}}) {
    process.SetOption("PicRandom", value);
    InitShow(process, 1, *form);
    std::vector<std::string> items = process.PictureList.TakeItems();
    EXPECT_EQ(items != entries, shuffled) << value;
    EXPECT_THAT(items, testing::UnorderedElementsAreArray(entries));
  }
}

TEST_F(MediaCollectionsTest, ASavedListReplacesTheStoredOne) {
  Store("PictureFiles", {"1", "2", "3", "4", "5"});
  form->pictures.AddItem(MakeListEntry("a.jpg", "C:\\"));
  form->pictures.AddItem("b");
  SaveList(process.Settings, form->pictures, "PictureFiles", "File");
  LoadList(process.Settings, form->sounds, "PictureFiles", "File");
  ASSERT_EQ(form->sounds.ListCount(), 2);
  EXPECT_EQ(form->sounds.List(0), form->pictures.List(0));
  form->pictures.Clear();
  SaveList(process.Settings, form->pictures, "PictureFiles", "File");
  EXPECT_EQ(process.Settings.GetSetting("PictureFiles", "File0", "none"), "none");
}

}  // namespace
}  // namespace quorvale
