#pragma once

#include "show/show_form.h"
#include "toolkit/nonvisual_controls.h"

namespace quorvale {

// The preview. The form itself is never shown: its picture box becomes a child of another program's window, and the
// show runs there. Takes no input. Ends at the first tick after the host window is gone or the picture box was asked
// to close.
class ControlForm : public ShowForm {
 public:
  explicit ControlForm(Process& process);

  MessageHook message_hook;

 protected:
  void Form_Load() override;
  void tmrSwitch_Timer() override;

 private:
  void Msghook1_Message(int message);
};

}  // namespace quorvale
