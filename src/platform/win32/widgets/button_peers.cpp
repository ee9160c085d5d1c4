#include "platform/win32/widgets/button_peers.h"

#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

ControlKind KindOf(const Button& button) {
  return {L"BUTTON", static_cast<DWORD>(button.is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)};
}

}  // namespace

ButtonControl::ButtonControl(DialogWindow& dialog, Button& button)
    : ControlPeer(dialog, button, KindOf(button)), button_(button) {
  if (button.is_cancel) dialog.Keyboard().SetCancelButton(*this);
  if (button.is_default) dialog.Keyboard().SetDefaultButton(*this);
}

ButtonControl::~ButtonControl() { Dialog().Keyboard().ForgetButton(*this); }

LRESULT ButtonControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_SETFOCUS) Dialog().Keyboard().MarkDefault(*this);
  if (message == WM_KILLFOCUS) Dialog().Keyboard().UnmarkDefault(*this);
  return Default(message, first, second);
}

void ButtonControl::OnCommand(int code) {
  if (code == BN_CLICKED) Press();
}

}  // namespace quorvale
