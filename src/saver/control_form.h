#pragma once

#include "show/show_form.h"
#include "toolkit/message_hook.h"

namespace quorvale {

// The preview: loaded and never shown, it puts its picture box into the host window that another program
// named, and runs the show there. It ends at the first tick after the host has gone or a close message
// has reached the picture box; it takes no input.
class ControlForm : public ShowForm {
 public:
  explicit ControlForm(Process& process);

  MessageHook Msghook1;

 protected:
  void Form_Load() override;
  void tmrSwitch_Timer() override;

 private:
  void Msghook1_Message(int message);
};

}  // namespace quorvale
