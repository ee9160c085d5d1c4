#pragma once

#include <string>

#include "platform/win32/widgets/native_control.h"
#include "toolkit/panels.h"

namespace quorvale {

class TabStripControl : public ControlPeer<> {
 public:
  TabStripControl(DialogWindow& dialog, TabStrip& strip);

  bool IsBackground() const override { return true; }
  bool TakeAccessKey(wchar_t key) override;
  void Refresh(WidgetAspect aspect) override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  LRESULT OnNotify(NMHDR& notice) override;

 private:
  void ShowSelected() const;

  TabStrip& strip_;
  // The tool tip on show; the system reads it after we have given it.
  std::wstring tool_tip_;
};

}  // namespace quorvale
