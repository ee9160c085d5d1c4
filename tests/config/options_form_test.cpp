#include "config/options_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "base/failure.h"
#include "config/application_info.h"
#include "process/process.h"
#include "support/headless_fixture.h"
#include "toolkit/spoken_name.h"

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

  // The options in the order in which they are written.
  std::string Stored() {
    std::string values;
    for (const char* key :
         {"PicRandom", "ShowFileName", "SoundRandom", "Stretch", "Interval", "BackColor", "SwapAffect", "TransSpeed",
          "FrameThickness", "FrameColor", "ShowFrame", "ResetPicList", "ResetSoundList"}) {
      values += process.options.Get(key, "none") + " ";
    }
    return values;
  }

  // The text of the last box, or empty when none has been shown.
  std::string LastBox() { return desktop.boxes.shown.empty() ? "" : desktop.boxes.shown.back().text; }
};

TEST_F(OptionsFormTest, AFirstRunShowsTheDefaultsAndOkWritesThem) {
  Open().Find<Button>("cmdOK").UserClick();
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
    form->Find<CheckBox>("chkStretch").SetValue(1);
    if (!is_unread) desktop.registry.failures.FailCall(c.call, c.count, kErrorWriteFault);
    form->Find<Button>("cmdOK").UserClick();
    EXPECT_THAT(LastBox(), HasSubstr(is_unread ? "Nothing was saved:" : "can't be saved"));
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_EQ(process.options.Get("Interval", ""), "9");
    EXPECT_EQ(process.options.Get("BackColor", ""), c.background);
    EXPECT_EQ(process.options.Get("Stretch", "none"), "none");
    desktop.boxes.shown.clear();
  }
  form->Find<Button>("cmdOK").UserClick();
  EXPECT_EQ(process.options.Get("Stretch", "none"), "1");
}

TEST_F(OptionsFormTest, EachControlGoesToItsOwnKeyAndComesBackUnlessCancelled) {
  const auto change = [](OptionsForm& dialog) {
    for (CheckBox* box : {&dialog.Find<CheckBox>("chkPicRandom"), &dialog.Find<CheckBox>("chkShowFrame"),
                          &dialog.Find<CheckBox>("chkResetSoundList")})
      box->UserClick();
    dialog.Find<TextBox>("txtInterval").UserSetText("07");
    dialog.Find<TextBox>("txtFrameThickness").UserSetText("1.");
    dialog.Find<DropDownList>("cboAffect").UserChoose(10);
    dialog.Find<Slider>("sldSpeed").UserSetValue(4);
  };
  const std::string before = Stored();
  change(Open());
  form->Find<Button>("cmdCancel").UserClick();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(Stored(), before);

  change(Open());
  form->Find<Button>("cmdOK").UserClick();
  EXPECT_EQ(Stored(), "1 0 0 0 07 0 Shrinking Square 4 1. 16777215 1 0 1 ");
  EXPECT_EQ(Open().Find<TextBox>("txtInterval").Text(), "7");
  EXPECT_EQ(form->Find<DropDownList>("cboAffect").Text(), "Shrinking Square");
}

TEST_F(OptionsFormTest, OkTestsTheBoundsOfTheNumbersInOrder) {
  struct Case {
    std::string interval;
    std::string thickness;
    std::string message;
    std::string focus;
  };
  const std::vector<Case> cases = {
      {"2", "1", "", ""},
      {"60", "20", "", ""},
      {" 2", "1.", "", ""},
      {"1", "3", kIntervalMessage, "txtInterval"},
      {"61", "3", kIntervalMessage, "txtInterval"},
      {"", "", kIntervalMessage, "txtInterval"},
      {"x9", "3", kIntervalMessage, "txtInterval"},
      {"5", "0", kThicknessMessage, "txtFrameThickness"},
      {"5", "21", kThicknessMessage, "txtFrameThickness"},
      {"5", "-1", kThicknessMessage, "txtFrameThickness"},
      {"5", ".9", kThicknessMessage, "txtFrameThickness"},
  };
  for (const Case& c : cases) {
    desktop.boxes.shown.clear();
    desktop.widgets.focused.clear();
    OptionsForm& dialog = Open();
    dialog.Find<CheckBox>("chkShowFrame").SetValue(1);
    dialog.Find<TextBox>("txtInterval").UserSetText(c.interval);
    dialog.Find<TextBox>("txtFrameThickness").UserSetText(c.thickness);
    desktop.boxes.Answer(MessageBoxAnswer::kOk);
    dialog.Find<Button>("cmdOK").UserClick();
    EXPECT_EQ(LastBox(), c.message) << c.interval << " " << c.thickness;
    EXPECT_EQ(desktop.widgets.focused, c.focus) << c.interval << " " << c.thickness;
    EXPECT_EQ(dialog.IsLoaded(), !c.message.empty());
  }
}

// The box that the message is about may be hidden or disabled: no second failure comes of that.
TEST_F(OptionsFormTest, AFailedTestBringsThePageForwardAndNeedsNoFocus) {
  OptionsForm& dialog = Open();
  for (const int tab : {2, 2, 1, 2}) {
    dialog.Find<TabStrip>("TabStrip1").UserSelect(tab);
    EXPECT_EQ(dialog.Find<Frame>("Frame1(1)").Visible(), tab == 1);
    EXPECT_EQ(dialog.Find<Frame>("Frame1(2)").Visible(), tab == 2);
  }
  dialog.Find<TextBox>("txtFrameThickness").UserSetText("");
  dialog.Find<Button>("cmdOK").UserClick();

  ASSERT_THAT(desktop.boxes.shown, SizeIs(1));
  EXPECT_EQ(desktop.boxes.shown[0].icon, MessageBoxIcon::kExclamation);
  EXPECT_EQ(desktop.boxes.shown[0].title, "");
  EXPECT_TRUE(dialog.IsLoaded());
  EXPECT_EQ(dialog.Find<TabStrip>("TabStrip1").SelectedItem(), 1);
  EXPECT_TRUE(dialog.Find<TextBox>("txtInterval").CanTakeFocus());
}

TEST_F(OptionsFormTest, ShowsWhatItCanOfOddStoredValues) {
  struct Case {
    std::string key;
    std::string stored;
    std::string saved;
    bool fails = false;
  };
  const std::vector<Case> cases = {
      {"PicRandom", "yes", "0"},
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
  };
  for (const Case& c : cases) {
    desktop.boxes.shown.clear();
    const std::string before = process.options.Get(c.key, "");
    process.options.Set(c.key, c.stored);
    process.options.Set("ResetSoundList", "1");
    desktop.boxes.Answer(MessageBoxAnswer::kOk);
    OptionsForm& dialog = Open();
    EXPECT_EQ(LastBox().empty(), !c.fails) << c.key << " " << c.stored;
    if (c.fails) {
      EXPECT_THAT(LastBox(), HasSubstr(c.key + ": "));
      EXPECT_THROW(dialog.table.Load(process.options), Failure);
    }
    EXPECT_EQ(dialog.Find<CheckBox>("chkResetSoundList").Value(), 1) << "the options behind it are read all the same";
    dialog.table.Save(process.options);
    EXPECT_EQ(process.options.Get(c.key, "none"), c.saved) << c.key << " " << c.stored;
    process.options.Set(c.key, before.empty() ? "1" : before);
    while (desktop.boxes.Waiting() > 0) desktop.boxes.Show({});
  }
}

TEST_F(OptionsFormTest, FrameControlsFollowTheFrameAndTheStretching) {
  for (const auto& [framed, stretched] : std::vector<std::tuple<int, int>>{{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
    process.options.Set("ShowFrame", std::to_string(framed));
    process.options.Set("Stretch", std::to_string(stretched));
    const OptionsForm& at_load = Open();
    const bool enabled = framed == 1 && stretched == 0;
    EXPECT_EQ(at_load.Find<TextBox>("txtFrameThickness").Enabled(), enabled);

    form->Find<CheckBox>("chkStretch").UserClick();
    form->Find<CheckBox>("chkStretch").UserClick();
    EXPECT_EQ(form->Find<CheckBox>("chkShowFrame").Enabled(), stretched == 0);
    EXPECT_EQ(form->Find<CheckBox>("chkShowFrame").Value(), framed);
    for (const Widget* control :
         std::vector<Widget*>{&form->Find<TextBox>("txtFrameThickness"), &form->Find<Button>("cmdFrameColor"),
                              &form->Find<Label>("lblThickness")}) {
      EXPECT_EQ(control->Enabled(), enabled) << control->Name();
    }
    EXPECT_TRUE(form->Find<Label>("lblFrameColor").Enabled());
  }
}

TEST_F(OptionsFormTest, ColoursComeFromTheirDialogAndStayAfterCancel) {
  OptionsForm& dialog = Open();
  dialog.Find<CheckBox>("chkShowFrame").UserClick();
  Colour offered = 1;
  desktop.dialogs.AnswerColour([&](Colour start) {
    offered = start;
    return Colour{0x2040FF};
  });
  dialog.Find<Button>("cmdBackColor").UserClick();
  EXPECT_EQ(offered, kBlack);
  EXPECT_EQ(dialog.Find<Label>("lblBackColor").BackColor(), 0x2040FFU);
  dialog.Find<Button>("cmdBackColor").UserClick();
  dialog.Find<Button>("cmdFrameColor").UserClick();
  EXPECT_EQ(dialog.Find<Label>("lblBackColor").BackColor(), 0x2040FFU);
  EXPECT_EQ(dialog.Find<Label>("lblFrameColor").BackColor(), kWhite);
  desktop.dialogs.AnswerColour([](Colour start) { return start - 1; });
  dialog.Find<Button>("cmdFrameColor").UserClick();
  EXPECT_EQ(dialog.Find<Label>("lblFrameColor").BackColor(), kWhite - 1);
  EXPECT_EQ(dialog.Find<Label>("lblBackColor").BackColor(), 0x2040FFU);
  EXPECT_EQ(process.options.Get("BackColor", "none"), "none");
}

TEST_F(OptionsFormTest, TheIntervalTakesDigitsAndBackspaceAlone) {
  OptionsForm& dialog = Open();
  for (const int code : std::vector<int>{8, '0', '9'})
    EXPECT_EQ(dialog.Find<TextBox>("txtInterval").UserKeyPress(code), code);
  for (const int code : std::vector<int>{'/', ':', '.', '-', ' ', 'a', 13, 0xE9})
    EXPECT_EQ(dialog.Find<TextBox>("txtInterval").UserKeyPress(code), 0);
  EXPECT_EQ(dialog.Find<TextBox>("txtFrameThickness").UserKeyPress('.'), '.');
}

TEST_F(OptionsFormTest, HelpPressesF1WhichOpensTheDialogsTopic) {
  OptionsForm& dialog = Open();
  dialog.Find<Button>("cmdHelp").UserClick();
  desktop.RequestHelp(dialog.Hwnd());
  EXPECT_THAT(desktop.calls,
              ElementsAre("SendKeys {F1}", "WinHelp " + std::to_string(dialog.Hwnd()) + " " + kHelpFile + " 1 7"));
}

TEST_F(OptionsFormTest, ItsControlsLieInsideTheirContainersAndHaveTheirPlacesInTheTabOrder) {
  const OptionsForm& dialog = Open();
  std::set<int> tab_order;
  dialog.ForEach<Widget>([&](const Widget& control) {
    EXPECT_TRUE(tab_order.insert(control.Design().tab_index).second) << control.Name();
    const Frame* const container = control.Design().container;
    const TwipRect inside = container ? container->Place() : TwipRect{.width = 6216, .height = 4104};
    EXPECT_LE(control.Place().left + control.Place().width, inside.width) << control.Name();
    EXPECT_LE(control.Place().top + control.Place().height, inside.height) << control.Name();
  });
  EXPECT_EQ(*tab_order.rbegin(), 27);
  EXPECT_THAT(tab_order, SizeIs(28));
}

TEST_F(OptionsFormTest, EachControlHasANameToBeSpoken) {
  const OptionsForm& dialog = Open();
  EXPECT_EQ(SpokenName(dialog.Find<Button>("cmdOK")), "OK");
  EXPECT_EQ(SpokenName(dialog.Find<TextBox>("txtInterval")), "Swap Interval (Sec.):");
  EXPECT_EQ(SpokenName(dialog.Find<DropDownList>("cboAffect")), "Transition Effect");
  EXPECT_EQ(SpokenName(dialog.Find<Slider>("sldSpeed")), "Speed");
  EXPECT_EQ(SpokenName(dialog.Find<Label>("lblFrameColor")), "Current background color.");
}

}  // namespace
}  // namespace quorvale
