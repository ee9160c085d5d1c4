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

 private:
  Frame& frame_;
};

class RuleControl : public ControlPeer<> {
 public:
  RuleControl(DialogWindow& dialog, Rule& rule) : ControlPeer(dialog, rule, {L"STATIC"}), rule_(rule) { Place(); }

  void FollowScale() override { Place(); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  void Place() const;

  Rule& rule_;
};

class ImageViewControl : public ControlPeer<> {
 public:
  ImageViewControl(DialogWindow& dialog, ImageView& view)
      : ControlPeer(dialog, view, {L"STATIC", SS_NOTIFY | (view.Click ? WS_TABSTOP : 0U)}), view_(view) {}

  bool IsBackground() const override { return true; }
  bool ShowsCaption() const override { return false; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;

 private:
  void Paint();

  ImageView& view_;
};

}  // namespace quorvale
