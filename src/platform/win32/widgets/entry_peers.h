#pragma once

#include "platform/win32/widgets/native_control.h"
#include "toolkit/entry_fields.h"

namespace quorvale {

class TextBoxControl : public ControlPeer<> {
 public:
  TextBoxControl(DialogWindow& dialog, TextBox& box);

  bool ShowsCaption() const override { return false; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;
  void ShowValue() override;

 private:
  TextBox& box_;
  // The text is being set by the program, so its change is not reported.
  bool is_showing_ = false;
};

class DropDownControl : public ControlPeer<> {
 public:
  DropDownControl(DialogWindow& dialog, DropDownList& list);

  bool ShowsCaption() const override { return false; }

 protected:
  void OnCommand(int code) override;
  void Place() const override;
  void ShowValue() override;

 private:
  DropDownList& list_;
};

class SliderControl : public ControlPeer<> {
 public:
  SliderControl(DialogWindow& dialog, Slider& slider);

  bool ShowsCaption() const override { return false; }
  void FollowScale() override;

 protected:
  void OnScroll() override;
  void ShowValue() override;

 private:
  void FitThumb() const;

  Slider& slider_;
};

}  // namespace quorvale
