#pragma once

#include <cstdint>
#include <string>

#include "toolkit/buttons.h"
#include "toolkit/common_dialog.h"
#include "toolkit/entry_fields.h"
#include "toolkit/form.h"
#include "toolkit/panels.h"

namespace quorvale {

struct Process;

// The modal dialog for the show's options. Changes are stored on OK. If a control can't hold the stored value, a box
// says so while the dialog loads; the control keeps its initial value, and OK stores that.
class frmOptions : public Form {
 public:
  explicit frmOptions(Process& process);

  Process& TheProcess() const { return process_; }

  TabStrip TabStrip1;
  Frame Frame1_1;
  Frame Frame1_2;
  Frame Frame3;
  Frame Frame4;

  // The page of pictures.
  Label Label1_0;
  TextBox txtInterval;
  CheckBox chkPicRandom;
  CheckBox chkShowFileName;
  CheckBox chkStretch;
  CheckBox chkResetPicList;
  Button cmdBackColor;
  Label lblBackColor;
  DropDownList cboAffect;
  Label Label2;
  Slider sldSpeed;
  Label Label3;
  Label Label4;
  CheckBox chkShowFrame;
  Label lblThickness;
  TextBox txtFrameThickness;
  Button cmdFrameColor;
  Label lblFrameColor;

  // The page of sounds.
  CheckBox chkSoundRandom;
  CheckBox chkResetSoundList;

  Button cmdOK;
  Button cmdCancel;
  Button cmdHelp;
  CommonDialog cd1;

  // The visible page, from 1.
  std::int16_t CurrentTab = 1;

 protected:
  void Form_Load() override;
  void Form_Help() override;

 private:
  void ReadOptions();
  void UpdateFrameControls();
  void TabStrip1_Click();
  void PickColour(Label& swatch);
  void txtInterval_KeyPress(int& code);
  void cmdOK_Click();
  void cmdHelp_Click();

  Frame& Page(int index) { return index == 1 ? Frame1_1 : Frame1_2; }
  // Whether the number in `box` is from `least` to `most`. If not, shows `message` and moves the focus to `box`.
  bool IsBetween(TextBox& box, double least, double most, const char* message);

  void Warn(const std::string& text);

  Process& process_;
  // Whether the stored options could be read. Otherwise OK must not replace them.
  bool options_read_ = false;
};

}  // namespace quorvale
