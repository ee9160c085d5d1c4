#include "playlist/list_store.h"

#include "playlist/list_entry.h"
#include "settings/reg_settings.h"
#include "support/headless_fixture.h"
#include "toolkit/list_box.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kSection[] = "PictureFiles";

class ListStoreTest : public HeadlessTest {
 protected:
  void Save(const std::vector<std::string>& items) {
    list.Clear();
    for (const std::string& item : items) list.AddItem(item);
    SaveList(settings, list, kSection, "File");
  }
  std::vector<std::string> Items() {
    std::vector<std::string> items;
    for (int i = 0; i < list.ListCount(); ++i) items.push_back(list.List(i));
    return items;
  }
  std::vector<std::string> Load() {
    list.Clear();
    LoadList(settings, list, kSection, "File");
    return Items();
  }

  CRegSettings settings{desktop.registry};
  Application app{desktop};
  ScriptedForm form{app};
  ListBox list{form, {.name = "List"}};
};

TEST_F(ListStoreTest, AListComesBackColumnForColumnAndInItsOrder) {
  std::vector<std::string> items = {MakeListEntry("sea.jpg", "C:\\"), "  x  ", "", std::string(512, ' '), "\xFF"};
  while (items.size() < 12) items.push_back("item " + std::to_string(items.size()));
  settings.SaveSetting("SoundFiles", "File0", "a sound");
  Save(items);
  EXPECT_EQ(Load(), items);
  EXPECT_EQ(settings.GetSetting("SoundFiles", "File0"), "a sound");
}

TEST_F(ListStoreTest, AShorterListLeavesNothingOfALongerOne) {
  Save({"1", "2", "3", "4", "5"});
  settings.SaveSetting(kSection, "Other", "x");
  Save({"a", "b"});
  for (const char* key : {"File2", "File3", "File4", "Other"}) {
    EXPECT_EQ(settings.GetSetting(kSection, key, "none"), "none") << key;
  }
  EXPECT_THAT(Load(), ElementsAre("a", "b"));
  Save({});
  EXPECT_FALSE(settings.DeleteSetting(kSection)) << "the section itself is gone";
  EXPECT_THAT(Load(), IsEmpty());
}

TEST_F(ListStoreTest, LoadingAppendsUpToAGapOrTheEndMark) {
  Save({"1", "2", "3", "EOF", "5"});
  EXPECT_THAT(Load(), ElementsAre("1", "2", "3"));
  settings.DeleteSetting(kSection, "File1");
  LoadList(settings, list, kSection, "File");
  EXPECT_THAT(Items(), ElementsAre("1", "2", "3", "1"));
  settings.SaveSetting(kSection, "File0", "eof");
  EXPECT_THAT(Load(), ElementsAre("eof"));
}

TEST_F(ListStoreTest, FailingWritesAreSilentAndTheRestIsWritten) {
  Save({"1", "2", "3"});
  desktop.registry.failures.FailCall(RegistryCall::kDeleteKey, 1, kErrorAccessDenied);
  desktop.registry.failures.FailCall(RegistryCall::kSet, 2, kErrorAccessDenied);
  Save({"a", "b"});
  EXPECT_THAT(Load(), ElementsAre("a", "2", "3"));
  EXPECT_EQ(desktop.registry.OpenKeys(), 0);
}

TEST_F(ListStoreTest, MoreThanAListBoxHoldsIsAFailure) {
  Save({"last"});
  while (list.ListCount() < ListBox::kMostItems) list.AddItem("");
  EXPECT_EQ(FailureOf([&] { LoadList(settings, list, kSection, "File"); }), FailureNumber::kListFull);
}

}  // namespace
}  // namespace quorvale
