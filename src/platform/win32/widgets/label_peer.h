#pragma once

#include <string>

#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/widgets/native_control.h"
#include "toolkit/panels.h"

namespace quorvale {

// The system's label breaks its lines between words alone. Where that does not fit the place, the letters get smaller,
// lines break anywhere, and what is still too much is left out in the middle and told by the tool tip.
class LabelControl : public ControlPeer<> {
 public:
  LabelControl(DialogWindow& dialog, Label& label);

  void Refresh(WidgetAspect aspect) override;
  void FollowScale() override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
  HBRUSH OnColour(HDC context) override;

 private:
  void Fit();
  bool Fits(HFONT font, const std::string& text, UINT breaking) const;
  void Paint() const;

  Label& label_;
  GdiObject<HBRUSH> background_;
  // What we draw ourselves; empty leaves the drawing to the system.
  std::string drawn_;
};

}  // namespace quorvale
