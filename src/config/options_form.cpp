#include "config/options_form.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "config/application_info.h"
#include "config/center_form.h"
#include "config/option_set.h"
#include "process/process.h"
#include "system/programs.h"
#include "transitions/effects.h"

namespace quorvale {
namespace {

constexpr float kClientWidth = 6216;
constexpr float kClientHeight = 4104;
constexpr int kSlowest = 1;
constexpr int kFastest = 20;
constexpr int kNumberLength = 2;
constexpr int kBackspace = 8;
constexpr int kPicturesPage = 1;

std::vector<std::string> EffectNames() {
  std::vector<std::string> names = {kNoEffect, kRandomEffect};
  for (const Effect& effect : Effects()) names.emplace_back(effect.name);
  return names;
}

}  // namespace

frmOptions::frmOptions(Process& process)
    : Form(process.app, "frmOptions", WindowKind::kDialog, "Screen Saver Options"),
      TabStrip1(*this, {.name = "TabStrip1", .place = {120, 120, 5976, 3444}, .tab_index = 0},
                {{.caption = "&Pictures", .tool_tip = "Set Picture Options"},
                 {.caption = "&Sounds", .tool_tip = "Set Sound Options"}}),
      Frame1_1(*this, {.name = "Frame1(1)", .place = {216, 480, 5784, 3000}, .tab_index = 18}, false),
      Frame1_2(*this, {.name = "Frame1(2)", .place = {216, 480, 5784, 3000}, .tab_index = 21, .visible = false}, false),
      Frame3(*this,
             {.name = "Frame3",
              .caption = "Transition &Effect",
              .place = {2940, 60, 2724, 1560},
              .tab_index = 9,
              .container = &Frame1_1},
             true),
      Frame4(*this, {.name = "Frame4", .place = {2940, 1830, 2724, 1128}, .tab_index = 22, .container = &Frame1_1},
             true),
      Label1_0(*this, {.name = "Label1(0)",
                       .caption = "S&wap Interval (Sec.):",
                       .place = {120, 150, 1740, 228},
                       .tab_index = 1,
                       .container = &Frame1_1}),
      txtInterval(*this,
                  {.name = "txtInterval",
                   .place = {1920, 108, 480, 300},
                   .tool_tip = "Number of seconds between image and sound changes.",
                   .tab_index = 2,
                   .container = &Frame1_1},
                  kNumberLength),
      chkPicRandom(*this, {.name = "chkPicRandom",
                           .caption = "&Random Order",
                           .place = {120, 570, 2760, 252},
                           .tool_tip = "Randomize pictures in Play List.",
                           .tab_index = 3,
                           .container = &Frame1_1}),
      chkShowFileName(*this, {.name = "chkShowFileName",
                              .caption = "Sho&w Picture's File Name",
                              .place = {120, 960, 2760, 252},
                              .tool_tip = "Display picture's file name at the bottom of the screen.",
                              .tab_index = 4,
                              .container = &Frame1_1}),
      chkStretch(*this, {.name = "chkStretch",
                         .caption = "S&tretch Picture to Fit Screen",
                         .place = {120, 1350, 2760, 252},
                         .tool_tip = "Size all images to completely fill the screen.",
                         .tab_index = 5,
                         .container = &Frame1_1}),
      chkResetPicList(*this, {.name = "chkResetPicList",
                              .caption = "Reset Play List when Started",
                              .place = {120, 1740, 2760, 252},
                              .tool_tip = "When started, play your pictures from the beginning of the list",
                              .tab_index = 6,
                              .container = &Frame1_1}),
      cmdBackColor(*this, {.name = "cmdBackColor",
                           .caption = "&Background Color...",
                           .place = {120, 2460, 1908, 372},
                           .tool_tip = "Displays a dialog for selecting the background color.",
                           .tab_index = 7,
                           .container = &Frame1_1}),
      lblBackColor(*this,
                   {.name = "lblBackColor",
                    .place = {2148, 2460, 612, 372},
                    .tool_tip = "Current background color.",
                    .tab_index = 8,
                    .container = &Frame1_1},
                   {.border = true}),
      cboAffect(*this,
                {.name = "cboAffect",
                 .place = {120, 288, 2484, 315},
                 .tool_tip = "Select the affect to transisition between image changes.",
                 .tab_index = 10,
                 .container = &Frame3},
                EffectNames()),
      Label2(*this,
             {.name = "Label2",
              .caption = "Spee&d",
              .place = {120, 708, 2484, 228},
              .tab_index = 11,
              .container = &Frame3},
             {.bold = true, .centred = true}),
      sldSpeed(*this,
               {.name = "sldSpeed",
                .place = {120, 936, 2484, 330},
                .tool_tip = "Adjust Transition Speed",
                .tab_index = 12,
                .container = &Frame3},
               kSlowest, kFastest),
      Label3(
          *this,
          {.name = "Label3", .caption = "Slow", .place = {120, 1272, 600, 228}, .tab_index = 26, .container = &Frame3}),
      Label4(
          *this,
          {.name = "Label4", .caption = "Fast", .place = {2124, 1272, 480, 228}, .tab_index = 27, .container = &Frame3},
          {.centred = true}),
      chkShowFrame(*this, {.name = "chkShowFrame",
                           .caption = "S&how Picture Frame",
                           .place = {3060, 1704, 2040, 252},
                           .tool_tip = "Put a frame around the pictures.",
                           .tab_index = 13,
                           .container = &Frame1_1}),
      lblThickness(*this, {.name = "lblThickness",
                           .caption = "Thic&kness:",
                           .place = {120, 270, 1020, 228},
                           .tab_index = 14,
                           .container = &Frame4}),
      txtFrameThickness(*this,
                        {.name = "txtFrameThickness",
                         .place = {1200, 228, 480, 300},
                         .tool_tip = "Width of picture's frame",
                         .tab_index = 15,
                         .container = &Frame4},
                        kNumberLength),
      cmdFrameColor(*this, {.name = "cmdFrameColor",
                            .caption = "&Frame Color...",
                            .place = {120, 636, 1740, 372},
                            .tool_tip = "Displays a dialog for selecting the frame color.",
                            .tab_index = 16,
                            .container = &Frame4}),
      lblFrameColor(*this,
                    {.name = "lblFrameColor",
                     .place = {1992, 636, 612, 372},
                     .tool_tip = "Current background color.",
                     .tab_index = 17,
                     .container = &Frame4},
                    {.border = true}),
      chkSoundRandom(*this, {.name = "chkSoundRandom",
                             .caption = "Ra&ndom Order",
                             .place = {120, 180, 3600, 252},
                             .tool_tip = "Randomize sounds in Play List.",
                             .tab_index = 19,
                             .container = &Frame1_2}),
      chkResetSoundList(*this, {.name = "chkResetSoundList",
                                .caption = "Reset Play List when Started",
                                .place = {120, 570, 3600, 252},
                                .tool_tip = "When started, play your sounds from the beginning of the list",
                                .tab_index = 20,
                                .container = &Frame1_2}),
      cmdOK(*this, {.name = "cmdOK",
                    .caption = "&OK",
                    .place = {2568, 3648, 1095, 360},
                    .tool_tip = "Save changes.",
                    .tab_index = 23}),
      cmdCancel(*this, {.name = "cmdCancel",
                        .caption = "&Cancel",
                        .place = {3783, 3648, 1095, 360},
                        .tool_tip = "Close without saving changes.",
                        .tab_index = 24}),
      cmdHelp(*this, {.name = "cmdHelp",
                      .caption = "&Help",
                      .place = {4998, 3648, 1095, 360},
                      .tool_tip = "Displays publisher's information.",
                      .tab_index = 25}),
      cd1(*this, "cd1"),
      process_(process) {
  SetClientSize(kClientWidth, kClientHeight);
  lblBackColor.SetBackColor(kBlack);
  lblFrameColor.SetBackColor(kWhite);
  cmdOK.Default = true;
  cmdCancel.Cancel = true;

  TabStrip1.Click = [this] { TabStrip1_Click(); };
  chkShowFrame.Click = [this] { UpdateFrameControls(); };
  chkStretch.Click = [this] { UpdateFrameControls(); };
  cmdBackColor.Click = [this] { PickColour(lblBackColor); };
  cmdFrameColor.Click = [this] { PickColour(lblFrameColor); };
  txtInterval.KeyPress = [this](int& code) { txtInterval_KeyPress(code); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { Unload(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
}

void frmOptions::Form_Load() {
  CenterForm(*this);
  CurrentTab = kPicturesPage;
  ReadOptions();
  UpdateFrameControls();
}

// A damaged value must not keep the dialog from opening, because the user corrects it there.
void frmOptions::ReadOptions() {
  try {
    options_read_ = LoadOptions(*this);
  } catch (const Failure& failure) {
    Warn("A stored option can't be shown.\n\n" + failure.Description() +
         "\n\nOK stores what the dialog shows in its place.");
    options_read_ = LoadUsableOptions(*this);
  }
  if (!options_read_) {
    Warn(
        "Your settings can't be read. The options that this dialog shows are not the stored ones, and OK will not "
        "put them in their place.");
  }
}

void frmOptions::Warn(const std::string& text) {
  App().ShowMessageBox({.text = text, .icon = MessageBoxIcon::kExclamation});
}

void frmOptions::Form_Help() { process_.system.programs.WinHelp(Hwnd(), kHelpFile, kHelpContext, kHelpTopicOptions); }

void frmOptions::UpdateFrameControls() {
  const bool stretched = chkStretch.Value() == 1;
  chkShowFrame.SetEnabled(!stretched);
  const bool framed = chkShowFrame.Value() == 1 && !stretched;
  txtFrameThickness.SetEnabled(framed);
  cmdFrameColor.SetEnabled(framed);
  lblThickness.SetEnabled(framed);
}

void frmOptions::TabStrip1_Click() {
  const auto selected = static_cast<std::int16_t>(TabStrip1.SelectedItem());
  if (selected == CurrentTab) return;
  Page(selected).SetVisible(true);
  Page(CurrentTab).SetVisible(false);
  CurrentTab = selected;
}

void frmOptions::PickColour(Label& swatch) {
  cd1.Color = swatch.BackColor();
  cd1.ShowColor();
  swatch.SetBackColor(cd1.Color);
}

void frmOptions::txtInterval_KeyPress(int& code) {
  const bool is_digit = code >= '0' && code <= '9';
  if (!is_digit && code != kBackspace) code = 0;
}

void frmOptions::cmdOK_Click() {
  if (!IsBetween(txtInterval, 2, 60, "Swap Interval must be between 2 and 60 seconds.")) return;
  if (!IsBetween(txtFrameThickness, 1, 20, "Frame thickness must be between 1 and 20.")) return;
  if (!options_read_) {
    Warn(
        "Nothing was saved: your settings could not be read when this dialog opened, and what was not read is not "
        "replaced.");
    return;
  }
  if (!SaveOptions(*this)) {
    Warn("Your settings can't be saved. The disk may be full, or another program may hold them.");
    return;
  }
  Unload();
}

bool frmOptions::IsBetween(TextBox& box, double least, double most, const char* message) {
  const double number = LenientParse(box.Text());
  if (number >= least && number <= most) return true;
  Warn(message);
  if (CurrentTab != kPicturesPage) TabStrip1.UserSelect(kPicturesPage);
  if (box.CanTakeFocus()) box.SetFocus();
  return false;
}

void frmOptions::cmdHelp_Click() { process_.system.programs.SendKeys("{F1}"); }

}  // namespace quorvale
