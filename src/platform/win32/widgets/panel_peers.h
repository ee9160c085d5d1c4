#pragma once

#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/widgets/native_control.h"
#include "toolkit/panels.h"

namespace quorvale {

// The parent of the controls on it.
class FrameControl : public ControlPeer<> {
 public:
  FrameControl(DialogWindow& dialog, Frame& frame);

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
};

class LabelControl : public ControlPeer<> {
 public:
  LabelControl(DialogWindow& dialog, Label& label);

  void FollowScale() override;

 protected:
  HBRUSH OnColour(HDC context) override;

 private:
  Label& label_;
  GdiObject<HBRUSH> background_;
};

class RuleControl : public ControlPeer<> {
 public:
  RuleControl(DialogWindow& dialog, Rule& rule) : ControlPeer(dialog, rule, {L"STATIC"}), rule_(rule) {}

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  Rule& rule_;
};

class ImageViewControl : public ControlPeer<> {
 public:
  ImageViewControl(DialogWindow& dialog, ImageView& view)
      : ControlPeer(dialog, view, {L"STATIC", SS_NOTIFY | (view.Click ? WS_TABSTOP : 0U)}), view_(view) {}

  bool IsBackground() const override { return true; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;

 private:
  void Paint();

  ImageView& view_;
};

}  // namespace quorvale
