#include "playlist/list_store.h"
#include "show/slide_tick.h"
#include "support/failing_allocation.h"
#include "support/show_fixture.h"
#include "toolkit/list_box.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

// Memory can run out at any place. Each of these tries every allocation in turn.
using AllocationFailuresTest = ShowTest;

TEST_F(AllocationFailuresTest, ATickGoesOn) {
  Pictures({"picture 10 10 ff0000", "picture 10 10 00ff00", "picture 10 10 0000ff"});
  Sounds(2);
  process.options.Set("ShowFileName", "1");
  process.options.Set("ShowFrame", "1");
  process.options.Set("SwapAffect", "Shrinking Square");
  Start();
  FirstTick();
  int number = 0;
  for (bool has_failed = true; has_failed;) {
    ++number;
    process.app.Dispatch([&] {
      const FailingAllocation failing(number);
      SlideTick(process, *form_);
      has_failed = failing.HasFailed();
    });
    EXPECT_TRUE(desktop.boxes.shown.empty()) << number << ": " << desktop.boxes.shown.back().text;
    desktop.boxes.shown.clear();
    EXPECT_EQ(process.app.Forms.Count(), 1) << number;
    const std::string before = Position();
    NextTick();
    EXPECT_NE(Position(), before) << number;
  }
  EXPECT_GT(number, 50);
}

TEST_F(AllocationFailuresTest, AStoredListIsTheOldOrTheNewOne) {
  ScriptedForm form{process.app};
  ListBox list{form, {.name = "List"}};
  const auto save = [&](const std::vector<std::string>& items) {
    list.Clear();
    for (const std::string& item : items) list.AddItem(item);
    return process.Settings.SaveTogether([&] { SaveList(process.Settings, list, "PictureFiles", "File"); });
  };
  const std::vector<std::string> old_list = {"a", "b", "c"};
  const std::vector<std::string> new_list = {std::string(500, 'd'), "e"};
  int number = 0;
  for (bool has_failed = true; has_failed;) {
    ++number;
    ASSERT_TRUE(save(old_list)) << number;
    bool is_saved = false;
    process.app.Dispatch([&] {
      const FailingAllocation failing(number);
      is_saved = save(new_list);
      has_failed = failing.HasFailed();
    });
    list.Clear();
    LoadList(process.Settings, list, "PictureFiles", "File");
    std::vector<std::string> stored;
    for (int i = 0; i < list.ListCount(); ++i) stored.push_back(list.List(i));
    EXPECT_EQ(stored, is_saved ? new_list : old_list) << number;
  }
  EXPECT_GT(number, 20);
}

}  // namespace
}  // namespace quorvale
