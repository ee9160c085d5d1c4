#include "playlist/media_collections.h"

#include "playlist/list_entry.h"
#include "process/process.h"
#include "support/headless_fixture.h"
#include "toolkit/list_box.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

class MediaCollectionsTest : public HeadlessTest {
 protected:
  Process process{desktop, desktop.Services()};

  void SetUp() override {
    for (const char* name : {"b.JPG", "a.jpg", "c.bmp", "d.jpeg", "e.txt", "f.gif", "y.wmf", "z.emf", "song.wav"}) {
      desktop.files.AddFile(std::string("C:\\d\\") + name);
    }
    desktop.files.AddFile("C:\\d\\hidden.jpg", "", kAttributeHidden);
    desktop.files.AddFile("C:\\d\\system.jpg", "", kAttributeSystem);
    desktop.files.AddDirectory("C:\\d\\sub.jpg");
  }

  void Store(const std::string& section, const std::vector<std::string>& entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      process.settings.SaveSetting(section, "File" + std::to_string(i), entries[i]);
    }
  }
  std::vector<std::string> PicturesOf(const std::vector<std::string>& entries) {
    process.settings.DeleteSetting("PictureFiles");
    Store("PictureFiles", entries);
    return FillFromSettings(process.settings, desktop.files, "PictureFiles", PictureMask()).TakeItems();
  }
};

TEST_F(MediaCollectionsTest, DirectoriesComeInTheOrderOfTheMaskAndThenByName) {
  const std::string mask = "*.bmp;*.gif;*.jpg;*.jpeg;*.wmf;*.emf";
  EXPECT_EQ(PictureMask(), mask);
  EXPECT_EQ(PictureMask(true), mask + ";*.png;*.webp;*.heic;*.heif;*.avif;*.jxl;*.tif;*.tiff");
  EXPECT_THAT(PicturesOf({"C:\\x.txt", MakeListEntry("C:\\d\\", "C:\\d\\"), "C:\\y.jpg"}),
              ElementsAre("C:\\x.txt", "C:\\d\\c.bmp", "C:\\d\\f.gif", "C:\\d\\a.jpg", "C:\\d\\b.JPG", "C:\\d\\d.jpeg",
                          "C:\\d\\y.wmf", "C:\\d\\z.emf", "C:\\y.jpg"));
  EXPECT_EQ(PicturesOf({"C:\\d\\", "C:\\d\\"}).size(), 14U);
}

TEST_F(MediaCollectionsTest, AListEndsAtAGapOrAtTheEndMark) {
  EXPECT_THAT(PicturesOf({"C:\\a", "EOF", "C:\\b"}), ElementsAre("C:\\a"));
  Store("PictureFiles", {"C:\\a", "C:\\b", "C:\\c"});
  process.settings.DeleteSetting("PictureFiles", "File1");
  EXPECT_EQ(FillFromSettings(process.settings, desktop.files, "PictureFiles", PictureMask()).Count(), 1);
  EXPECT_EQ(FillFromSettings(process.settings, desktop.files, "Nothing", PictureMask()).Count(), 0);
}

TEST_F(MediaCollectionsTest, AnUnreadableDirectoryLosesOnlyItsFiles) {
  EXPECT_THAT(PicturesOf({"C:\\gone\\", "C:\\y.jpg"}), ElementsAre("C:\\y.jpg"));
  desktop.files.MakeUnreadable("C:\\d", 1);
  EXPECT_THAT(PicturesOf({"C:\\d\\", "C:\\y.jpg"}), ElementsAre("C:\\d\\c.bmp", "C:\\y.jpg"));
}

TEST_F(MediaCollectionsTest, ATreeComesDepthFirstAndEachDirectoryOnce) {
  for (const char* name :
       {"b.jpg", "a.bmp", "B\\z.jpg", "B\\A\\x.jpg", "B\\loop\\x.jpg", "a\\1.gif", "a\\2.txt", "a_\\1.gif",
        "again\\1.gif", "locked\\1.gif", "locked\\2.gif", "locked\\below\\1.gif", "z\\song.wav"}) {
    desktop.files.AddFile(std::string("C:\\t\\") + name);
  }
  for (const int attribute : {kAttributeHidden, kAttributeSystem}) {
    const std::string folder = "C:\\t\\z\\with attribute " + std::to_string(attribute);
    desktop.files.AddDirectory(folder, attribute);
    desktop.files.AddFile(folder + "\\x.jpg");
  }
  desktop.files.MakeSame("C:\\t\\B\\loop", "C:\\t");
  desktop.files.MakeSame("C:\\t\\again", "C:\\t\\a");
  desktop.files.MakeUnreadable("C:\\t\\locked", 1);
  const auto tree = [&](const std::vector<std::string>& entries, const std::string& mask) {
    Store("Trees", entries);
    return FillFromSettings(process.settings, desktop.files, "Trees", mask, true).TakeItems();
  };
  EXPECT_THAT(tree({"C:\\t\\", "C:\\t\\z\\x.txt"}, PictureMask()),
              ElementsAre("C:\\t\\a.bmp", "C:\\t\\b.jpg", "C:\\t\\a\\1.gif", "C:\\t\\a_\\1.gif", "C:\\t\\B\\z.jpg",
                          "C:\\t\\B\\A\\x.jpg", "C:\\t\\locked\\1.gif", "C:\\t\\z\\with attribute 4\\x.jpg",
                          "C:\\t\\z\\x.txt"));
  EXPECT_THAT(tree({"C:\\t\\", "C:\\gone\\", "C:\\t\\z\\"}, kSoundMask),
              ElementsAre("C:\\t\\z\\song.wav", "C:\\t\\z\\song.wav"));
}

TEST_F(MediaCollectionsTest, DatesOrderAListAndFilesWithoutOneComeLast) {
  const std::pair<const char*, std::int64_t> dates[] = {
      {"C:\\d\\a.jpg", 2}, {"C:\\d\\c.bmp", -1}, {"C:\\d\\b.JPG", 2}, {"C:\\d\\f.gif", 3}};
  for (const auto& [path, date] : dates) desktop.files.SetDate(path, date);
  const auto sorted = [&](bool newest_first) {
    Collection collection({"C:\\gone", "C:\\d\\b.JPG", "C:\\d\\c.bmp", "C:\\d\\e.txt", "C:\\d\\f.gif", "C:\\d\\a.jpg"});
    SortByDate(desktop.files, collection, newest_first);
    return collection.TakeItems();
  };
  EXPECT_THAT(sorted(true),
              ElementsAre("C:\\d\\f.gif", "C:\\d\\b.JPG", "C:\\d\\a.jpg", "C:\\d\\c.bmp", "C:\\gone", "C:\\d\\e.txt"));
  EXPECT_THAT(sorted(false),
              ElementsAre("C:\\d\\c.bmp", "C:\\d\\b.JPG", "C:\\d\\a.jpg", "C:\\d\\f.gif", "C:\\gone", "C:\\d\\e.txt"));
}

TEST_F(MediaCollectionsTest, AListBoxMayHoldTheEndMarkAndEverythingElse) {
  Form form(process.app, "Lists", WindowKind::kDialog, "Lists");
  ListBox list(form, {.name = "lstList"});
  for (const char* entry : {"C:\\a", "EOF", "", "C:\\d\\", "C:\\gone\\", "C:\\a"}) list.AddItem(entry);
  EXPECT_THAT(FillFromList(desktop.files, list, "*.gif;*.WAV").TakeItems(),
              ElementsAre("C:\\a", "EOF", "", "C:\\d\\f.gif", "C:\\d\\song.wav", "C:\\a"));
}

using UnixMediaCollectionsTest = HeadlessTest;

TEST_F(UnixMediaCollectionsTest, DirectoriesExpandWithoutRegardToCase) {
  desktop.files.SetSyntax({'/'});
  for (const char* name : {"B.BMP", "a.Jpg", "A.jpg", "x.jpg~", "no\nise.gif", "sub/c.jpg"}) {
    desktop.files.AddFile(std::string("/d/") + name);
  }
  desktop.files.AddFile("/d/.hidden.jpg", "", kAttributeHidden);
  Process process(desktop, desktop.Services());
  process.settings.SaveSetting("PictureFiles", "File0", MakeListEntry("/d/", "/d/"));
  EXPECT_THAT(FillFromSettings(process.settings, desktop.files, "PictureFiles", PictureMask()).TakeItems(),
              ElementsAre("/d/B.BMP", "/d/no\nise.gif", "/d/A.jpg", "/d/a.Jpg"));
}

}  // namespace
}  // namespace quorvale
