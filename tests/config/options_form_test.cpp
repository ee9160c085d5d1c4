#include "config/options_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/application_info.h"
#include "base/failure.h"
#include "process/process.h"
#include "support/headless_fixture.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

constexpr char kIntervalMessage[] = "Swap Interval must be between 2 and 60 seconds.";
constexpr char kThicknessMessage[] = "Frame thickness must be between 1 and 20.";

class OptionsFormTest : public HeadlessTest {
 protected:
  Process process{desktop, desktop.Services()};
  std::shared_ptr<OptionsForm> form;

  OptionsForm& Open() {
    if (form && form->IsLoaded()) form->Unload();
    form = std::make_shared<OptionsForm>(process);
    form->Show();
    return *form;
  }
  CheckBox& Check(const char* name) { return form->Find<CheckBox>(name); }
  TextBox& Text(const char* name) { return form->Find<TextBox>(name); }
  Colour Swatch(const char* name) { return form->Find<Label>(name).BackColor(); }
  void Press(const char* name) { form->Find<Button>(name).UserClick(); }

  // Of the pages "Pictures" and "Sounds".
  std::string Stored() const {
    std::string values;
    for (const OptionRow* option : kDialogOptions) {
      if (option == kFirstOnMorePage) break;
      values += process.options.Get(option->key, "none") + " ";
    }
    return values;
  }

  // The text of the last box, or empty when none has been shown.
  std::string LastBox() { return desktop.boxes.shown.empty() ? "" : desktop.boxes.shown.back().text; }
};

TEST_F(OptionsFormTest, FirstRunShowsTheDefaultsAndOkStoresThem) {
  Open();
  Press("cmdOK");
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(Stored(), "0 0 0 0 5 0 Random 20 3 16777215 0 0 0 ");
  EXPECT_THAT(form->Find<DropDownList>("cboAffect").Items(),
              ElementsAre("None", "Random", "Sweep Right", "Sweep Left", "Sweep Down", "Sweep Up", "Spotlight",
                          "Bubbles", "Horizontal Sandwich", "Vertical Sandwich", "Shrinking Square"));
}

// Fallbacks in place of unread options must not replace them at OK. A damaged value, which makes the dialog read the
// options again, does not hide that.
TEST_F(OptionsFormTest, UnreadOptionsAndFailedSavesAreReportedAndTheStoreStays) {
  struct Case {
    RegistryCall call;
    int count;
    const char* background = "255";
  };
  process.options.Set("Interval", "9");
  for (const Case& c : {Case{RegistryCall::kOpen, 5},
                        {RegistryCall::kOpen, 6 + 4, "99999999999"},
                        {RegistryCall::kBegin, 1},
                        {RegistryCall::kSet, 1},
                        {RegistryCall::kCommit, 1}}) {
    const bool is_unread = c.call == RegistryCall::kOpen;
    process.options.Set("BackColor", c.background);
    if (is_unread) desktop.registry.failures.FailCall(c.call, c.count, kErrorReadFault);
    Open();
    EXPECT_EQ(LastBox().starts_with("Your settings can't be read."), is_unread);
    Check("chkStretch").SetValue(1);
    if (!is_unread) desktop.registry.failures.FailCall(c.call, c.count, kErrorWriteFault);
    Press("cmdOK");
    EXPECT_THAT(LastBox(), HasSubstr(is_unread ? "Nothing was saved:" : "can't be saved"));
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(process.options.Get("Interval", ""), "9");
    EXPECT_EQ(process.options.Get("BackColor", ""), c.background);
    EXPECT_EQ(process.options.Get("Stretch", "none"), "none");
    desktop.boxes.shown.clear();
  }
  Press("cmdOK");
  EXPECT_EQ(process.options.Get("Stretch", "none"), "1");
}

TEST_F(OptionsFormTest, EachControlHasItsOwnKey) {
  const std::string before = Stored();
  for (const char* const button : {"cmdCancel", "cmdOK"}) {
    EXPECT_EQ(Stored(), before);
    Open();
    for (const char* const box : {"chkPicRandom", "chkShowFrame", "chkResetSoundList"}) Check(box).UserClick();
    Text("txtInterval").UserSetText("07");
    Text("txtFrameThickness").UserSetText("1.");
    form->Find<DropDownList>("cboAffect").UserChoose(10);
    form->Find<Slider>("sldSpeed").UserSetValue(4);
    Press(button);
    EXPECT_FALSE(form->IsLoaded());
  }
  EXPECT_EQ(Stored(), "1 0 0 0 07 0 Shrinking Square 4 1. 16777215 1 0 1 ");
  Open();
  EXPECT_EQ(Text("txtInterval").Text(), "7");
  EXPECT_EQ(form->Find<DropDownList>("cboAffect").Text(), "Shrinking Square");
}

// A store without the options of the page "More" stays without them until the user turns one on.
TEST_F(OptionsFormTest, AChoiceIsStoredWhenItChanges) {
  struct Case {
    const char* key;
    const char* list;
    std::vector<std::string> items;
  };
  for (const Case& c : {Case{"Scaling", "cboScaling", {"As Set Under Pictures", "Fit", "Fill"}},
                        Case{"CaptionText", "cboCaptionText", {"File Name", "Date Taken", "File Name and Date"}},
                        Case{"Order", "cboOrder", {"As Listed", "Newest First", "Oldest First"}},
                        Case{"Monitors", "cboMonitors", {"Primary Only", "A Picture on Each"}}}) {
    EXPECT_EQ(Open().Find<DropDownList>(c.list).Items(), c.items);
    Press("cmdOK");
    EXPECT_EQ(process.options.Get(c.key, "none"), "none");
    for (const int index : {1, 0}) {
      Open().Find<DropDownList>(c.list).UserChoose(index);
      Press("cmdOK");
      EXPECT_EQ(process.options.Get(c.key, "none"), c.items[static_cast<std::size_t>(index)]);
    }
  }
}

TEST_F(OptionsFormTest, AFlagOfThePageMoreIsStoredWhenItChanges) {
  Open();
  form->Find<DropDownList>("cboScaling").UserChoose(1);
  Press("cmdOK");
  for (const std::string key : {"FitBackdrop", "SubFolders", "MoreKinds"}) {
    EXPECT_EQ(process.options.Get(key, "none"), "none");
    for (const char* value : {"1", "0"}) {
      Open();
      Check(("chk" + key).c_str()).UserClick();
      Press("cmdOK");
      EXPECT_EQ(process.options.Get(key, "none"), value);
    }
  }
}

TEST_F(OptionsFormTest, WhatIsOutOfEffectIsDisabled) {
  Open();
  for (const bool is_on : {true, false}) {
    for (const char* const name : {"chkShowFileName", "chkPicRandom"}) Check(name).UserClick();
    EXPECT_EQ(form->Find<DropDownList>("cboCaptionText").Enabled(), is_on);
    EXPECT_EQ(form->Find<DropDownList>("cboOrder").Enabled(), !is_on);
  }
}

// Fitted pictures have their frame whatever the stretching, which is out of effect then.
TEST_F(OptionsFormTest, ScalingDisablesStretching) {
  process.options.Set("ShowFrame", "1");
  process.options.Set("Stretch", "1");
  Open();
  for (const int index : {1, 0, 2}) {
    form->Find<DropDownList>("cboScaling").UserChoose(index);
    EXPECT_EQ(Check("chkStretch").Enabled(), index == 0);
    EXPECT_EQ(Check("chkFitBackdrop").Enabled(), index == 1);
    EXPECT_EQ(Check("chkShowFrame").Enabled(), index > 0);
    EXPECT_EQ(Text("txtFrameThickness").Enabled(), index > 0);
  }
}

TEST_F(OptionsFormTest, OkChecksTheRangesOfTheNumbers) {
  struct Case {
    const char* interval;
    const char* thickness;
    const char* message;
    const char* focus;
  };
  for (const Case& c : {Case{"2", "1", "", ""},
                        {"60", "20", "", ""},
                        {" 2", "1.", "", ""},
                        {"1", "3", kIntervalMessage, "txtInterval"},
                        {"61", "3", kIntervalMessage, "txtInterval"},
                        {"", "", kIntervalMessage, "txtInterval"},
                        {"x9", "3", kIntervalMessage, "txtInterval"},
                        {"5", "0", kThicknessMessage, "txtFrameThickness"},
                        {"5", "21", kThicknessMessage, "txtFrameThickness"},
                        {"5", "-1", kThicknessMessage, "txtFrameThickness"},
                        {"5", ".9", kThicknessMessage, "txtFrameThickness"}}) {
    SCOPED_TRACE(c.interval + std::string(" ") + c.thickness);
    desktop.boxes.shown.clear();
    desktop.widgets.focused.clear();
    Open();
    Check("chkShowFrame").SetValue(1);
    Text("txtInterval").UserSetText(c.interval);
    Text("txtFrameThickness").UserSetText(c.thickness);
    Press("cmdOK");
    EXPECT_EQ(LastBox(), c.message);
    EXPECT_EQ(desktop.widgets.focused, c.focus);
    EXPECT_EQ(form->IsLoaded(), *c.message != '\0');
  }
}

// The field that the message is about may be hidden or disabled; that must not cause a second failure.
TEST_F(OptionsFormTest, FailedCheckShowsThePageAndNeedsNoFocus) {
  Open();
  auto& tabs = form->Find<TabStrip>("TabStrip1");
  for (const int tab : {2, 2, 1, 3, 2}) {
    tabs.UserSelect(tab);
    EXPECT_EQ(form->Find<Frame>("Frame1(1)").Visible(), tab == 1);
    EXPECT_EQ(form->Find<Frame>("Frame1(2)").Visible(), tab == 2);
    EXPECT_EQ(form->Find<Frame>("Frame1(3)").Visible(), tab == 3);
  }
  Text("txtFrameThickness").UserSetText("");
  Press("cmdOK");
  ASSERT_THAT(desktop.boxes.shown, SizeIs(1));
  EXPECT_EQ(desktop.boxes.shown[0].icon, MessageBoxIcon::kExclamation);
  EXPECT_EQ(desktop.boxes.shown[0].title, "");
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_EQ(tabs.SelectedItem(), 1);
  EXPECT_TRUE(Text("txtInterval").CanTakeFocus());
}

TEST_F(OptionsFormTest, ShowsDamagedValuesAsFarAsItCan) {
  struct Case {
    const char* key;
    const char* stored;
    const char* saved;
    bool fails = false;
  };
  for (const Case& c : {Case{"PicRandom", "yes", "0"},
                        {"PicRandom", "", "0"},
                        {"PicRandom", "70000", "0", true},
                        {"Stretch", "-1", "0", true},
                        {"BackColor", "&H00FF8000&", "16744448"},
                        {"BackColor", "99999999999", "0", true},
                        {"Interval", "0012", "12"},
                        {"Interval", "100000", "10"},
                        {"FrameThickness", "1e999", ""},
                        {"SwapAffect", "Explosion", ""},
                        {"SwapAffect", "", ""},
                        {"TransSpeed", "21", "1"},
                        {"TransSpeed", "7.5", "8"},
                        {"FrameColor", "-1", "-1"},
                        {"ShowFrame", "70000", "0"},
                        {"Scaling", "Fill", "Fill"},
                        {"Scaling", "Zoom", "As Set Under Pictures"}}) {
    SCOPED_TRACE(c.key + std::string(" ") + c.stored);
    desktop.boxes.shown.clear();
    const std::string before = process.options.Get(c.key, "");
    process.options.Set(c.key, c.stored);
    process.options.Set("ResetSoundList", "1");
    Open();
    EXPECT_EQ(LastBox().empty(), !c.fails);
    if (c.fails) {
      EXPECT_THAT(LastBox(), HasSubstr(c.key + std::string(": ")));
      EXPECT_THROW(form->table.Load(process.options), Failure);
    }
    EXPECT_EQ(Check("chkResetSoundList").Value(), 1) << "later options are read all the same";
    form->table.Save(process.options);
    EXPECT_EQ(process.options.Get(c.key, "none"), c.saved);
    process.options.Set(c.key, before.empty() ? "1" : before);
  }
}

TEST_F(OptionsFormTest, FrameControlsNeedAFrameAndNoStretching) {
  for (const int flags : {0, 1, 2, 3}) {
    const bool has_frame = (flags & 1) != 0;
    const bool is_stretched = (flags & 2) != 0;
    process.options.Set("ShowFrame", has_frame ? "1" : "0");
    process.options.Set("Stretch", is_stretched ? "1" : "0");
    Open();
    const bool enabled = has_frame && !is_stretched;
    EXPECT_EQ(Text("txtFrameThickness").Enabled(), enabled);
    for (int i = 0; i < 2; ++i) Check("chkStretch").UserClick();
    EXPECT_EQ(Check("chkShowFrame").Enabled(), !is_stretched);
    EXPECT_EQ(Check("chkShowFrame").Value(), has_frame ? 1 : 0);
    for (const char* const name : {"txtFrameThickness", "cmdFrameColor", "lblThickness"}) {
      EXPECT_EQ(form->Find<Widget>(name).Enabled(), enabled) << name;
    }
    EXPECT_TRUE(form->Find<Widget>("lblFrameColor").Enabled());
  }
}

TEST_F(OptionsFormTest, ColourButtonsSetTheirSwatches) {
  Open();
  Check("chkShowFrame").UserClick();
  Colour offered = 1;
  desktop.dialogs.AnswerColour([&](Colour start) { return offered = start, Colour{0x2040FF}; });
  Press("cmdBackColor");
  EXPECT_EQ(offered, kBlack);
  EXPECT_EQ(Swatch("lblBackColor"), 0x2040FFU);
  for (const char* const button : {"cmdBackColor", "cmdFrameColor"}) Press(button);  // cancelled
  EXPECT_EQ(Swatch("lblBackColor"), 0x2040FFU);
  EXPECT_EQ(Swatch("lblFrameColor"), kWhite);
  desktop.dialogs.AnswerColour([](Colour start) { return start - 1; });
  Press("cmdFrameColor");
  EXPECT_EQ(Swatch("lblFrameColor"), kWhite - 1);
  EXPECT_EQ(Swatch("lblBackColor"), 0x2040FFU);
  EXPECT_EQ(process.options.Get("BackColor", "none"), "none");
}

TEST_F(OptionsFormTest, IntervalAcceptsDigitsAndBackspaceOnly) {
  Open();
  for (const int code : {8, int{'0'}, int{'9'}}) EXPECT_EQ(Text("txtInterval").UserKeyPress(code), code);
  for (const int code : {int{'/'}, int{':'}, int{'.'}, int{' '}, int{'a'}, 13, 0xE9}) {
    EXPECT_EQ(Text("txtInterval").UserKeyPress(code), 0);
  }
  EXPECT_EQ(Text("txtFrameThickness").UserKeyPress('.'), '.');
}

TEST_F(OptionsFormTest, HelpButtonPressesF1WhichOpensTheTopic) {
  Open();
  Press("cmdHelp");
  desktop.RequestHelp(form->Hwnd());
  EXPECT_THAT(desktop.calls,
              ElementsAre("SendKeys {F1}", "WinHelp " + std::to_string(form->Hwnd()) + " " + kHelpFile + " 1 7"));
}

TEST_F(OptionsFormTest, ControlsFitTheirContainersAndHaveATabOrder) {
  Open();
  std::set<int> tab_order;
  form->ForEach<Widget>([&](const Widget& control) {
    EXPECT_TRUE(tab_order.insert(control.Design().tab_index).second) << control.Name();
    const Frame* const container = control.Design().container;
    const TwipRect inside = container ? container->Place() : TwipRect{.width = 6216, .height = 4104};
    EXPECT_GE(control.Place().left, 0) << control.Name();
    EXPECT_GE(control.Place().top, 0) << control.Name();
    EXPECT_LE(control.Place().left + control.Place().width, inside.width) << control.Name();
    EXPECT_LE(control.Place().top + control.Place().height, inside.height) << control.Name();
    // Pages lie on the strip, and a check box in the line of its group.
    const auto is_frame = [](const Widget& widget) { return dynamic_cast<const Frame*>(&widget) != nullptr; };
    if (container == nullptr || is_frame(control)) return;
    form->ForEach<Widget>([&](const Widget& other) {
      if (&other == &control || is_frame(other) || other.Design().container != container) return;
      const TwipRect a = control.Place();
      const TwipRect b = other.Place();
      const bool is_apart = a.left + a.width <= b.left || b.left + b.width <= a.left || a.top + a.height <= b.top ||
                            b.top + b.height <= a.top;
      EXPECT_TRUE(is_apart) << control.Name() << " lies on " << other.Name();
    });
  });
  EXPECT_EQ(*tab_order.begin(), 0);
  EXPECT_THAT(tab_order, SizeIs(*tab_order.rbegin() + 1));
}

TEST_F(OptionsFormTest, ControlsHaveSpokenNames) {
  Open();
  form->Find<Label>("lblFrameColor").SetBackColor(0x0080FF);
  for (const auto& [name, spoken] : {std::pair{"cmdOK", "OK"},
                                     {"txtInterval", "Swap Interval (Sec.):"},
                                     {"cboAffect", "Transition Effect"},
                                     {"sldSpeed", "Speed"},
                                     {"lblFrameColor", "Frame Color: #FF8000"}}) {
    EXPECT_EQ(SpokenName(form->Find<Widget>(name)), spoken);
  }
}

}  // namespace
}  // namespace quorvale
