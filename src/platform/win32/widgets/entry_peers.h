#pragma once

#include "platform/win32/widgets/native_control.h"
#include "toolkit/entry_fields.h"

namespace quorvale {

class TextBoxControl : public ControlPeer<> {
 public:
  TextBoxControl(DialogWindow& dialog, TextBox& box);

  bool ShowsCaption() const override { return false; }
  void Refresh(WidgetAspect aspect) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;

 private:
  void ShowText();

  TextBox& box_;
  bool is_showing_ = false;
};

class DropDownControl : public ControlPeer<> {
 public:
  DropDownControl(DialogWindow& dialog, DropDownList& list);

  bool ShowsCaption() const override { return false; }
  void Refresh(WidgetAspect aspect) override;
  void FollowScale() override;

 protected:
  void OnCommand(int code) override;

 private:
  void Place() const;
  void ShowChoice() const;

  DropDownList& list_;
};

class SliderControl : public ControlPeer<> {
 public:
  SliderControl(DialogWindow& dialog, Slider& slider);

  bool ShowsCaption() const override { return false; }
  void Refresh(WidgetAspect aspect) override;
  void FollowScale() override;

 protected:
  void OnScroll() override;

 private:
  void FitThumb() const;
  void ShowPosition() const;

  Slider& slider_;
};

}  // namespace quorvale
