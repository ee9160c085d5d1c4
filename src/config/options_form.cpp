#include "config/options_form.h"

#include <algorithm>

#include "base/application_info.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/strings.h"
#include "process/process.h"
#include "settings/options.h"
#include "system/programs.h"

namespace quorvale {
namespace {

namespace option_texts = strings::options;

constexpr TwipSize kOptionsSize = {6216, 4104};
constexpr int kBackspace = 8;
constexpr int kPicturesPage = 1;

}  // namespace

OptionsForm::OptionsForm(Process& process)
    : Form(process.app, "frmOptions", WindowKind::kDialog, option_texts::kTitle), process_(process) {
  SetClientSize(kOptionsSize.width, kOptionsSize.height);
  back_colour_.SetBackColor(kBlack);
  frame_colour_.SetBackColor(kWhite);
  ok_.is_default = true;
  cancel_.is_cancel = true;

  tabs_.Click = [this] { TabStrip1_Click(); };
  show_frame_.Click = [this] { UpdateEnabled(); };
  stretch_.Click = [this] { UpdateEnabled(); };
  scaling_.Click = [this] { UpdateEnabled(); };
  show_file_name_.Click = [this] { UpdateEnabled(); };
  random_pictures_.Click = [this] { UpdateEnabled(); };
  pick_back_colour_.Click = [this] { PickColour(back_colour_); };
  pick_frame_colour_.Click = [this] { PickColour(frame_colour_); };
  interval_.KeyPress = [this](int& code) { txtInterval_KeyPress(code); };
  ok_.Click = [this] { cmdOK_Click(); };
  cancel_.Click = [this] { Unload(); };
  Find<Button>("cmdHelp").Click = [this] { cmdHelp_Click(); };
}

void OptionsForm::Form_Load() {
  CenterOnScreen();
  current_page_ = kPicturesPage;
  ReadOptions();
  UpdateEnabled();
}

// A damaged value must not keep the dialog from opening, because the user corrects it there.
void OptionsForm::ReadOptions() {
  try {
    options_read_ = table.Load(process_.options);
  } catch (const Failure& failure) {
    Warn(strings::Fill(option_texts::kNotShown, {failure.Description()}));
    options_read_ = table.LoadUsable(process_.options);
  }
  if (!options_read_) Warn(option_texts::kUnread);
}

void OptionsForm::Warn(const std::string& text) {
  App().ShowMessageBox({.text = text, .icon = MessageBoxIcon::kExclamation});
}

void OptionsForm::Form_Help() { process_.system.programs.WinHelp(Hwnd(), kHelpFile, kHelpContext, kHelpTopicOptions); }

// What another option puts out of effect is grey.
void OptionsForm::UpdateEnabled() {
  // Nothing is chosen until the options have been read.
  const auto scaling = static_cast<Scaling>(std::max(scaling_.ListIndex(), 0));
  const bool is_scaled = scaling != Scaling::kAsSet;
  const bool is_stretched = stretch_.Value() == 1 && !is_scaled;
  stretch_.SetEnabled(!is_scaled);
  backdrop_.SetEnabled(scaling == Scaling::kFit);
  show_frame_.SetEnabled(!is_stretched);
  const bool has_frame = show_frame_.Value() == 1 && !is_stretched;
  thickness_.SetEnabled(has_frame);
  pick_frame_colour_.SetEnabled(has_frame);
  thickness_label_.SetEnabled(has_frame);

  const bool has_name = show_file_name_.Value() == 1;
  caption_text_.SetEnabled(has_name);
  caption_text_label_.SetEnabled(has_name);
  const bool is_ordered = random_pictures_.Value() != 1;
  order_.SetEnabled(is_ordered);
  order_label_.SetEnabled(is_ordered);
}

void OptionsForm::TabStrip1_Click() {
  const int selected = tabs_.SelectedItem();
  if (selected == current_page_) return;
  table.Page(selected).SetVisible(true);
  table.Page(current_page_).SetVisible(false);
  current_page_ = selected;
}

void OptionsForm::PickColour(Label& swatch) {
  colour_dialog_.colour = swatch.BackColor();
  colour_dialog_.ShowColor();
  swatch.SetBackColor(colour_dialog_.colour);
}

void OptionsForm::txtInterval_KeyPress(int& code) {
  const bool is_digit = code >= '0' && code <= '9';
  if (!is_digit && code != kBackspace) code = 0;
}

void OptionsForm::cmdOK_Click() {
  if (!IsBetween(interval_, 2, 60, option_texts::kIntervalRange)) return;
  if (!IsBetween(thickness_, 1, 20, option_texts::kThicknessRange)) return;
  if (!options_read_) {
    Warn(option_texts::kUnreadNotSaved);
    return;
  }
  if (!process_.settings.SaveTogether([this] { table.Save(process_.options); })) {
    Warn(option_texts::kNotSaved);
    return;
  }
  Unload();
}

bool OptionsForm::IsBetween(TextBox& box, double least, double most, const char* message) {
  const double number = LenientParse(box.Text());
  if (number >= least && number <= most) return true;
  Warn(message);
  if (current_page_ != kPicturesPage) tabs_.UserSelect(kPicturesPage);
  if (box.CanTakeFocus()) box.SetFocus();
  return false;
}

// F1 reaches the dialog by its own `Form_Help`.
void OptionsForm::cmdHelp_Click() { process_.system.programs.SendKeys("{F1}"); }

}  // namespace quorvale
