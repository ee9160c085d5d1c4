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

class MediaCollectionsTest : public ShowTest {
 protected:
  void SetUp() override {
    form = std::make_shared<ListForm>(process);
    form->Load();
    for (const char* name : {"b.JPG", "a.jpg", "c.bmp", "d.jpeg", "e.txt", "f.gif", "y.wmf", "z.emf", "song.wav"}) {
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
    return FillFromSettings(process, "PictureFiles", PictureMask()).TakeItems();
  }

  std::shared_ptr<ListForm> form;
};

TEST_F(MediaCollectionsTest, DirectoriesComeInTheOrderOfTheMaskAndThenByName) {
  EXPECT_EQ(PictureMask(), "*.bmp;*.gif;*.jpg;*.jpeg;*.wmf;*.emf");
  EXPECT_THAT(PicturesOf({"C:\\x.txt", MakeListEntry("C:\\d\\", "C:\\d\\"), "C:\\y.jpg"}),
              ElementsAre("C:\\x.txt", "C:\\d\\c.bmp", "C:\\d\\f.gif", "C:\\d\\a.jpg", "C:\\d\\b.JPG", "C:\\d\\d.jpeg",
                          "C:\\d\\y.wmf", "C:\\d\\z.emf", "C:\\y.jpg"));
  EXPECT_EQ(PicturesOf({"C:\\d\\", "C:\\d\\"}).size(), 14U);
}

TEST_F(MediaCollectionsTest, AListEndsAtAGapOrAtTheEndMark) {
  EXPECT_THAT(PicturesOf({"C:\\a", "EOF", "C:\\b"}), ElementsAre("C:\\a"));
  Store("PictureFiles", {"C:\\a", "C:\\b", "C:\\c"});
  process.Settings.DeleteSetting("PictureFiles", "File1");
  EXPECT_EQ(FillFromSettings(process, "PictureFiles", PictureMask()).Count(), 1);
  EXPECT_EQ(FillFromSettings(process, "Nothing", PictureMask()).Count(), 0);
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

TEST_F(MediaCollectionsTest, EachShuffleStartsFromTheClock) {
  const auto order = [&](std::uint64_t seed, const char* pictures, const char* sounds) {
    desktop.host.clock_seed = seed;
    process.SetOption("PicRandom", pictures);
    process.SetOption("SoundRandom", sounds);
    InitShow(process, 1, *form);
    return std::pair(process.PictureList.TakeItems(), process.SoundList.TakeItems());
  };
  std::vector<std::string> entries;
  for (int i = 0; i < 50; ++i) entries.push_back("C:\\" + std::to_string(i));
  Store("PictureFiles", entries);
  Store("SoundFiles", entries);
  const auto [pictures, sounds] = order(1, "1", "1");
  EXPECT_NE(pictures, entries);
  EXPECT_EQ(pictures, sounds) << "both draw from the same beginning";
  EXPECT_NE(order(2, "1", "1").first, pictures);
  EXPECT_EQ(order(1, "0", "1"), std::pair(entries, sounds));
}

TEST_F(MediaCollectionsTest, AnOptionOutOfRangeStopsTheStartWhereItStands) {
  Store("PictureFiles", {"C:\\new.jpg"});
  process.SetOption("LastPicture", "7");
  process.SetOption("BackColor", "99999999999");
  form->tmrSwitch.SetInterval(9000);
  form->tmrSwitch.SetEnabled(true);
  EXPECT_THROW(InitShow(process, 1, *form), Failure);
  EXPECT_FALSE(form->tmrSwitch.Enabled());
  EXPECT_EQ(process.PictureList.Count(), 1);
  process.SetOption("BackColor", "&H0000FF&");
  process.SetOption("TransSpeed", "99999999999");
  EXPECT_THROW(InitShow(process, 1, *form), Failure);
  EXPECT_TRUE(form->tmrSwitch.Enabled());
  EXPECT_EQ(form->PicBase.BackColor(), 0xFFU);
  EXPECT_EQ(process.TransitionSpeed, 0);
  EXPECT_EQ(process.Option("LastPicture", ""), "7");
}

TEST_F(MediaCollectionsTest, AListBoxMayHoldTheEndMarkAndEverythingElse) {
  for (const char* entry : {"C:\\a", "EOF", "", "C:\\d\\", "C:\\gone\\", "C:\\a"}) form->sounds.AddItem(entry);
  EXPECT_THAT(FillFromList(process, form->sounds, "*.gif;*.WAV").TakeItems(),
              ElementsAre("C:\\a", "EOF", "", "C:\\d\\f.gif", "C:\\d\\song.wav", "C:\\a"));
}

TEST_F(HeadlessTest, UnixDirectoriesExpandWithoutRegardToCase) {
  desktop.files.SetSyntax({'/'});
  for (const char* name : {"B.BMP", "a.Jpg", "A.jpg", "x.jpg~", "no\nise.gif", "sub/c.jpg"}) {
    desktop.files.AddFile(std::string("/d/") + name);
  }
  desktop.files.AddFile("/d/.hidden.jpg", "", kAttributeHidden);
  Process process(desktop, desktop.Services());
  process.Settings.SaveSetting("PictureFiles", "File0", MakeListEntry("/d/", "/d/"));
  EXPECT_THAT(FillFromSettings(process, "PictureFiles", PictureMask()).TakeItems(),
              ElementsAre("/d/B.BMP", "/d/no\nise.gif", "/d/A.jpg", "/d/a.Jpg"));
}

}  // namespace
}  // namespace quorvale
