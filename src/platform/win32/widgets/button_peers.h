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

// The toolkit's control knows whether it is on; the system's shows it and changes nothing by itself.
template <typename Kind>
class MarkControl : public ControlPeer<> {
 public:
  MarkControl(DialogWindow& dialog, Kind& button, DWORD style)
      : ControlPeer(dialog, button, StyleFor(button, style)), button_(button) {
    ShowMark();
  }

  bool IsOptionButton() const override { return std::is_same_v<Kind, OptionButton>; }
  void Refresh(WidgetAspect aspect) override {
    if (aspect == WidgetAspect::kValue) {
      ShowMark();
    } else {
      NativeControl::Refresh(aspect);
    }
  }

 protected:
  void OnCommand(int code) override {
    if (code == BN_CLICKED) button_.UserClick();
  }

 private:
  static ControlKind StyleFor(const Kind& button, DWORD style) {
    return {L"BUTTON", style | (button.Design().tab_index >= 0 ? WS_TABSTOP : 0U)};
  }
  void ShowMark() const { Send(BM_SETCHECK, button_.Value() ? BST_CHECKED : BST_UNCHECKED); }

  Kind& button_;
};

}  // namespace quorvale
