#include "playlist/list_store.h"

#include "playlist/list_entry.h"
#include "settings/reg_settings.h"
#include "support/failing_allocation.h"
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

TEST_F(ListStoreTest, KeepsTheOldOrTheNewListWhicheverAllocationFails) {
  const std::vector<std::string> old_list = {"a", "b", "c"};
  const std::vector<std::string> new_list = {std::string(500, 'd'), "e"};
  int number = 0;
  for (bool has_failed = true; has_failed;) {
    ++number;
    Save(old_list);
    bool is_saved = false;
    app.Dispatch([&] {
      const FailingAllocation failing(number);
      is_saved = settings.SaveTogether([&] { Save(new_list); });
      has_failed = failing.HasFailed();
    });
    EXPECT_EQ(Load(), is_saved ? new_list : old_list) << number;
  }
  EXPECT_GT(number, 20);
}

TEST_F(ListStoreTest, FailingWritesAreSilentAndTheRestIsWritten) {
  Save({"1", "2", "3"});
  desktop.registry.failures.FailCall(RegistryCall::kDeleteKey, 1, kErrorAccessDenied);
  desktop.registry.failures.FailCall(RegistryCall::kSet, 2, kErrorAccessDenied);
  Save({"a", "b"});
  EXPECT_THAT(Load(), ElementsAre("a", "2", "3"));
  EXPECT_EQ(desktop.registry.OpenKeys(), 0);
}

TEST_F(ListStoreTest, DistinguishesAnUnreadableListFromAShortOne) {
  Save({"1", "2", "3"});
  list.Clear();
  desktop.registry.failures.FailCall(RegistryCall::kQuery, 3, kErrorReadFault);
  EXPECT_EQ(LoadList(settings, list, kSection, "File"), LoadedPart::kUnread);
  EXPECT_THAT(Items(), ElementsAre("1"));
  list.Clear();
  EXPECT_EQ(LoadList(settings, list, kSection, "File"), LoadedPart::kAll);
}

TEST_F(ListStoreTest, KeepsEntriesBeyondTheListBox) {
  constexpr int kMost = ListBox::kMostItems;
  const auto stored = [this](int number) {
    return settings.GetSetting(kSection, "File" + std::to_string(number), "none");
  };
  for (const int stored_items : {kMost, kMost + 3}) {
    for (int i = 0; i < stored_items; ++i) {
      settings.SaveSetting(kSection, "File" + std::to_string(i), std::to_string(i));
    }
    list.Clear();
    const LoadedPart loaded = LoadList(settings, list, kSection, "File");
    EXPECT_EQ(list.ListCount(), kMost);
    EXPECT_EQ(loaded, stored_items > kMost ? LoadedPart::kFirst : LoadedPart::kAll);
  }
  SaveFirstPart(settings, list, kSection, "File");
  EXPECT_EQ(stored(kMost + 2), std::to_string(kMost + 2));
  list.RemoveItem(10);
  list.RemoveItem(0);
  SaveFirstPart(settings, list, kSection, "File");
  EXPECT_EQ(stored(0), "1");
  for (int i = kMost - 2; i <= kMost; ++i) EXPECT_EQ(stored(i), std::to_string(i + 2));
  EXPECT_EQ(stored(kMost + 1), "none");
}

}  // namespace
}  // namespace quorvale
