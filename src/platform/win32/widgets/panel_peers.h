#pragma once

#include <string>

#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/widgets/native_control.h"
#include "toolkit/panels.h"

namespace quorvale {

// The parent window of the controls in it.
class FrameControl : public ControlPeer<> {
 public:
  FrameControl(DialogWindow& dialog, Frame& frame);

  // A frame without a caption has no name.
  bool ShowsCaption() const override { return true; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  Frame& frame_;
};

class RuleControl : public ControlPeer<> {
 public:
  RuleControl(DialogWindow& dialog, Rule& rule) : ControlPeer(dialog, rule, {L"STATIC"}), rule_(rule) { Place(); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void Place() const override;

 private:
  Rule& rule_;
};

class ImageViewControl : public ControlPeer<> {
 public:
  ImageViewControl(DialogWindow& dialog, ImageView& view)
      : ControlPeer(dialog, view, {L"STATIC", SS_NOTIFY}), view_(view) {}

  bool IsBackground() const override { return true; }
  bool ShowsCaption() const override { return false; }
  bool IsLink() const override { return view_.Acts(); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  void OnCommand(int code) override;

 private:
  void Paint();

  ImageView& view_;
};

class TabStripControl : public ControlPeer<> {
 public:
  TabStripControl(DialogWindow& dialog, TabStrip& strip);

  bool IsBackground() const override { return true; }
  bool ShowsCaption() const override { return false; }
  bool PressAccessKey(wchar_t key) override;
  bool TurnPage(bool backwards) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  LRESULT OnNotify(NMHDR& notice) override;
  void ShowValue() override;

 private:
  TabStrip& strip_;
  // The system reads the tool tip after the handler that gave it has returned.
  std::wstring tool_tip_;
};

}  // namespace quorvale
