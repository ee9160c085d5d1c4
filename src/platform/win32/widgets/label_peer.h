#pragma once

#include <string>

#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/widgets/native_control.h"
#include "toolkit/panels.h"

namespace quorvale {

// The system's label wraps between words only, if its style lets it wrap. If the text does not fit, the font gets
// smaller; then lines break anywhere; then the middle of the text is left out, and the tool tip shows all of it.
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
  bool Fits(HFONT font, const std::string& text, UINT wrapping) const;
  void Paint() const;

  Label& label_;
  GdiObject<HBRUSH> background_;
  // The text that this class draws. If empty, the system draws the label.
  std::string drawn_;
};

}  // namespace quorvale
