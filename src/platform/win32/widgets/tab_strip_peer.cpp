#include "platform/win32/widgets/tab_strip_peer.h"

#include <commctrl.h>
#include <windowsx.h>

#include <cwctype>

#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {

TabStripControl::TabStripControl(DialogWindow& dialog, TabStrip& strip)
    : ControlPeer(dialog, strip, {WC_TABCONTROLW, WS_TABSTOP | TCS_TOOLTIPS | TCS_FOCUSONBUTTONDOWN}), strip_(strip) {
  int position = 0;
  for (const TabStrip::Tab& tab : strip.Tabs()) {
    std::wstring caption = ToWide(tab.caption);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    Send(TCM_INSERTITEMW, static_cast<WPARAM>(position++), reinterpret_cast<LPARAM>(&item));
  }
  ShowSelected();
  dialog.Page().SetStrip(strip, Window());
}

bool TabStripControl::TakeAccessKey(wchar_t key) {
  if (IsWindowVisible(Window()) == 0 || IsWindowEnabled(Window()) == 0) return false;
  const auto upper = [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); };
  for (std::size_t i = 0; i < strip_.Tabs().size(); ++i) {
    const std::wstring caption = ToWide(strip_.Tabs()[i].caption);
    const std::size_t mark = caption.find(L'&');
    if (mark == std::wstring::npos || mark + 1 == caption.size() || upper(caption[mark + 1]) != upper(key)) continue;
    TakeFocus();
    strip_.UserSelect(static_cast<int>(i) + 1);
    return true;
  }
  return false;
}

void TabStripControl::Refresh(WidgetAspect aspect) {
  if (aspect == WidgetAspect::kValue) {
    ShowSelected();
  } else {
    NativeControl::Refresh(aspect);
  }
}

// A click on the tab that is selected already is no change, and the system says nothing of it.
LRESULT TabStripControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_LBUTTONDOWN) {
    TCHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(second), GET_Y_LPARAM(second)};
    const auto tab = static_cast<int>(Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    if (tab >= 0 && tab == Send(TCM_GETCURSEL)) strip_.UserSelect(tab + 1);
  }
  if (message == WM_NOTIFY) {
    auto& notice = *reinterpret_cast<NMHDR*>(second);
    if (notice.code == TTN_GETDISPINFOW && notice.idFrom < strip_.Tabs().size()) {
      tool_tip_ = ToWide(strip_.Tabs()[notice.idFrom].tool_tip);
      reinterpret_cast<NMTTDISPINFOW&>(notice).lpszText = tool_tip_.data();
      return 0;
    }
  }
  return Default(message, first, second);
}

LRESULT TabStripControl::OnNotify(NMHDR& notice) {
  if (notice.code == TCN_SELCHANGE) strip_.UserSelect(static_cast<int>(Send(TCM_GETCURSEL)) + 1);
  return 0;
}

void TabStripControl::ShowSelected() const { Send(TCM_SETCURSEL, static_cast<WPARAM>(strip_.SelectedItem() - 1)); }

}  // namespace quorvale
