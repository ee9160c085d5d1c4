#pragma once

#include <string>

#include "config/options_table.h"
#include "toolkit/buttons.h"
#include "toolkit/dialogs.h"
#include "toolkit/entry_fields.h"
#include "toolkit/form.h"
#include "toolkit/panels.h"

namespace quorvale {

struct Process;

// The modal dialog for the show's options. Changes are stored on OK. If a control can't hold the stored value, a box
// says so while the dialog loads; the control keeps its initial value, and OK stores that.
class OptionsForm : public Form {
 public:
  explicit OptionsForm(Process& process);

  // All controls of the dialog. Those that the dialog itself works with have a name below.
  const OptionsTable table{*this};

 protected:
  void Form_Load() override;
  void Form_Help() override;

 private:
  void ReadOptions();
  void UpdateEnabled();
  void TabStrip1_Click();
  void PickColour(Label& swatch);
  void txtInterval_KeyPress(int& code);
  void cmdOK_Click();
  void cmdHelp_Click();

  // Whether the number in `box` is from `least` to `most`. If not, shows `message` and moves the focus to `box`.
  bool IsBetween(TextBox& box, double least, double most, const char* message);
  void Warn(const std::string& text);

  TabStrip& tabs_ = Find<TabStrip>("TabStrip1");
  TextBox& interval_ = Find<TextBox>("txtInterval");
  CheckBox& stretch_ = Find<CheckBox>("chkStretch");
  Button& pick_back_colour_ = Find<Button>("cmdBackColor");
  Label& back_colour_ = Find<Label>("lblBackColor");
  CheckBox& random_pictures_ = Find<CheckBox>("chkPicRandom");
  CheckBox& show_file_name_ = Find<CheckBox>("chkShowFileName");
  CheckBox& show_frame_ = Find<CheckBox>("chkShowFrame");
  Label& thickness_label_ = Find<Label>("lblThickness");
  TextBox& thickness_ = Find<TextBox>("txtFrameThickness");
  Button& pick_frame_colour_ = Find<Button>("cmdFrameColor");
  Label& frame_colour_ = Find<Label>("lblFrameColor");
  DropDownList& scaling_ = Find<DropDownList>("cboScaling");
  CheckBox& backdrop_ = Find<CheckBox>("chkFitBackdrop");
  Label& caption_text_label_ = Find<Label>("lblCaptionText");
  DropDownList& caption_text_ = Find<DropDownList>("cboCaptionText");
  Label& order_label_ = Find<Label>("lblOrder");
  DropDownList& order_ = Find<DropDownList>("cboOrder");
  Button& ok_ = Find<Button>("cmdOK");
  Button& cancel_ = Find<Button>("cmdCancel");
  CommonDialog colour_dialog_{*this, "cd1"};

  Process& process_;
  // The visible page, from 1.
  int current_page_ = 1;
  // Whether the stored options could be read. If not, OK must not replace them.
  bool options_read_ = false;
};

}  // namespace quorvale
