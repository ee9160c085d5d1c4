#pragma once

#include <cstdint>

#include "show/show_form.h"

namespace quorvale {

// The title by which a running show is recognised.
inline constexpr char kMainFormCaption[] = "Screen Saver Main Form";

// The window of the running saver: covers the screen, hides the cursor, and is there to end. A key, a
// press on its own surface or the tenth mouse move of ten seconds ends it; slides and sounds are the
// tick's.
class MainForm : public ShowForm {
 public:
  explicit MainForm(Process& process);

 protected:
  void Form_Load() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload() override;
  void Form_KeyDown(int key) override;
  void Form_MouseDown() override;
  void Form_MouseMove() override;
  void Form_Deactivate() override;
  void Form_ScreenChange() override;
  void tmrSwitch_Timer() override;

 private:
  void CountMouseMove();

  // When the present count of mouse moves began, in whole seconds since midnight; 0 is no count.
  std::int32_t FirstMoveTime_ = 0;
};

}  // namespace quorvale
