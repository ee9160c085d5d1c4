#include "toolkit/list_box.h"

#include "base/failure.h"
#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

TEST_F(HeadlessTest, ListBoxChecksPositionsAndItsLimit) {
  Application app(desktop);
  ScriptedForm form(app);
  ListBox list(form, {.name = "List"});
  list.AddItem("a");
  list.AddItem("b");
  list.AddItem("c");
  list.RemoveItem(1);
  list.SetList(1, "d");
  EXPECT_EQ(list.List(0) + list.List(1), "ad");
  for (const int index : {-1, 2}) {
    EXPECT_EQ(FailureOf([&] { list.List(index); }), FailureNumber::kNoSuchEntry);
    EXPECT_EQ(FailureOf([&] { list.SetList(index, ""); }), FailureNumber::kNoSuchEntry);
    EXPECT_EQ(FailureOf([&] { list.RemoveItem(index); }), FailureNumber::kNoSuchEntry);
  }
  while (list.ListCount() < ListBox::kMostItems) list.AddItem("");
  EXPECT_EQ(FailureOf([&] { list.AddItem(""); }), FailureNumber::kListFull);
  EXPECT_EQ(list.ListCount(), ListBox::kMostItems);
}

}  // namespace
}  // namespace quorvale
