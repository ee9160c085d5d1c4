#pragma once

#include <cstdint>

#include "saver/monitor_forms.h"
#include "show/show_form.h"
#include "toolkit/platform.h"

namespace quorvale {

// The window title. A second start finds a running show by it.
inline constexpr char kMainFormCaption[] = "Screen Saver Main Form";

// The full-screen show's window. Covers the screen, hides the cursor and decides when the show ends: at a key, at the
// tenth mouse move within ten seconds, or when another window takes the focus; a mouse button ends it on the other
// monitors only. Slides and sounds are the tick's business. With the option
// `Monitors` the other monitors have forms of their own, otherwise the platform keeps them black.
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
  void ColourCover();
  void FollowMonitors();

  // Start of the current count of mouse moves, in seconds since midnight; 0 if there is none.
  std::int32_t FirstMoveTime_ = 0;
  MonitorForms monitors_;
};

}  // namespace quorvale
