#pragma once

#include <type_traits>

#include "platform/win32/widgets/native_control.h"
#include "toolkit/buttons.h"

namespace quorvale {

class ButtonControl : public ControlPeer<> {
 public:
  ButtonControl(DialogWindow& dialog, Button& button);
  ~ButtonControl() override;
  ButtonControl(const ButtonControl&) = delete;
  ButtonControl& operator=(const ButtonControl&) = delete;

  bool IsButton() const override { return true; }
  void Press() override { button_.UserClick(); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;

 private:
  Button& button_;
};

// A check box or option button. The widget decides whether it is on; the Windows control only shows that.
template <typename Kind>
class MarkControl : public ControlPeer<> {
 public:
  MarkControl(DialogWindow& dialog, Kind& button, DWORD style)
      : ControlPeer(dialog, button, {L"BUTTON", style}), button_(button) {
    ShowValue();
  }

  bool IsOptionButton() const override { return std::is_same_v<Kind, OptionButton>; }

 protected:
  void OnCommand(int code) override {
    if (code == BN_CLICKED) button_.UserClick();
  }
  void ShowValue() override { Send(BM_SETCHECK, button_.Value() ? BST_CHECKED : BST_UNCHECKED); }

 private:
  Kind& button_;
};

}  // namespace quorvale
