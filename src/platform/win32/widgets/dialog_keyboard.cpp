#include "platform/win32/widgets/dialog_keyboard.h"

#include <algorithm>
#include <cwctype>
#include <functional>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/common/deliver.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/widgets/native_control.h"

namespace quorvale {
namespace {

// Topmost first.
std::vector<HWND> ChildrenOf(HWND parent) {
  std::vector<HWND> children;
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    children.push_back(child);
  }
  return children;
}

bool IsOptionButton(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  return control != nullptr && control->IsOptionButton();
}

// Controls without a tab index come last.
std::pair<bool, int> OrderOf(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  const int index = control != nullptr ? control->Design().tab_index : 0;
  return {index < 0, index};
}

// Lower values lie further up. Picture boxes are no controls and come first.
auto RankOf(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  return std::make_tuple(control != nullptr, control != nullptr && control->IsBackground(), OrderOf(window));
}

void SetGroup(HWND window, bool begins) {
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  SetWindowLongW(window, GWL_STYLE,
                 begins ? style | static_cast<LONG>(WS_GROUP) : style & ~static_cast<LONG>(WS_GROUP));
}

void ArrangeChildren(HWND parent) {
  std::vector<HWND> children = ChildrenOf(parent);
  std::stable_sort(children.begin(), children.end(), [](HWND a, HWND b) { return RankOf(a) < RankOf(b); });
  HWND above = HWND_TOP;
  bool after_option = false;
  for (const HWND child : children) {
    SetWindowPos(child, above, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    // Adjacent option buttons are one group. Every other control is a group by itself.
    SetGroup(child, !after_option || !IsOptionButton(child));
    after_option = IsOptionButton(child);
    above = child;
    if (NativeControl::Of(child) != nullptr) ArrangeChildren(child);
  }
}

BOOL CALLBACK AddTabStop(HWND window, LPARAM list) {
  const NativeControl* const control = NativeControl::Of(window);
  const bool is_stop = control != nullptr && (GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP) != 0;
  if (!is_stop || IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0) return TRUE;
  Deliver([&] { reinterpret_cast<std::vector<HWND>*>(list)->push_back(window); });
  return TRUE;
}

void ShowDefault(const NativeControl* button, bool is_default) {
  if (button == nullptr) return;
  SendMessageW(button->Window(), BM_SETSTYLE, is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

// A key that each control may handle.
struct OfferedKey {
  std::function<bool(NativeControl& control)> press;
  bool is_handled = false;
};

BOOL CALLBACK OfferKey(HWND window, LPARAM offered) {
  auto& key = *reinterpret_cast<OfferedKey*>(offered);
  NativeControl* const control = NativeControl::Of(window);
  if (control != nullptr) Deliver([&] { key.is_handled = key.press(*control); });
  return key.is_handled ? FALSE : TRUE;
}

// Whether a control of the dialog handles it.
bool Offer(HWND dialog, OfferedKey key) {
  EnumChildWindows(dialog, &OfferKey, reinterpret_cast<LPARAM>(&key));
  return key.is_handled;
}

}  // namespace

bool IsAccessKeyOf(const std::string& caption, wchar_t key) {
  const std::wstring text = ToWide(caption);
  const std::size_t mark = text.find(L'&');
  return mark != std::wstring::npos && mark + 1 < text.size() && std::towupper(text[mark + 1]) == std::towupper(key);
}

void DialogKeyboard::ArrangeControls() const { ArrangeChildren(dialog_); }

bool DialogKeyboard::Translate(MSG& message) const {
  if (message.message == WM_SYSCHAR && PressAccessKey(static_cast<wchar_t>(message.wParam))) return true;
  return TranslateDialogKey(message) || IsDialogMessageW(dialog_, &message) != 0;
}

// Keys that the system handles only in dialogs of its own window class.
bool DialogKeyboard::TranslateDialogKey(const MSG& message) const {
  if (message.message != WM_KEYDOWN) return false;
  const WPARAM key = message.wParam;
  if (key != VK_TAB && key != VK_RETURN && key != VK_ESCAPE) return false;
  // An open drop-down list uses these keys itself.
  const LRESULT wishes = SendMessageW(message.hwnd, WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&message));
  if ((wishes & (DLGC_WANTALLKEYS | DLGC_WANTMESSAGE)) != 0) return false;
  if (key == VK_TAB) {
    const bool backwards = GetKeyState(VK_SHIFT) < 0;
    const bool turns = GetKeyState(VK_CONTROL) < 0 &&
                       Offer(dialog_, {[backwards](NativeControl& control) { return control.TurnPage(backwards); }});
    if (!turns) MoveFocus(backwards);
  } else if (key == VK_RETURN) {
    PressDefault();
  } else if (cancel_button_ != nullptr) {
    cancel_button_->Press();
  }
  return true;
}

HWND DialogKeyboard::NextTabStop(HWND from, bool backwards) const {
  std::vector<HWND> stops;
  EnumChildWindows(dialog_, &AddTabStop, reinterpret_cast<LPARAM>(&stops));
  if (stops.empty()) return nullptr;
  std::stable_sort(stops.begin(), stops.end(), [](HWND a, HWND b) { return OrderOf(a) < OrderOf(b); });
  const auto found =
      std::find_if(stops.begin(), stops.end(), [from](HWND stop) { return stop == from || IsChild(stop, from) != 0; });
  const std::size_t count = stops.size();
  if (found != stops.end()) {
    const auto at = static_cast<std::size_t>(found - stops.begin());
    return stops[(at + (backwards ? count - 1 : 1)) % count];
  }
  if (NativeControl::Of(from) == nullptr) return stops.front();
  const auto after =
      std::find_if(stops.begin(), stops.end(), [from](HWND stop) { return OrderOf(from) < OrderOf(stop); });
  return after != stops.end() ? *after : stops.front();
}

void DialogKeyboard::MoveFocus(bool backwards) const {
  const HWND next = NextTabStop(GetFocus(), backwards);
  SetFocus(next);
  if ((SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) SendMessageW(next, EM_SETSEL, 0, -1);
}

bool DialogKeyboard::PressAccessKey(wchar_t key) const {
  return Offer(dialog_, {[key](NativeControl& control) { return control.PressAccessKey(key); }});
}

void DialogKeyboard::PressDefault() const {
  NativeControl* const focused = NativeControl::Of(GetFocus());
  NativeControl* const button = focused != nullptr && focused->IsButton() ? focused : default_button_;
  if (button != nullptr) button->Press();
}

void DialogKeyboard::ForgetButton(const NativeControl& button) {
  if (default_button_ == &button) default_button_ = nullptr;
  if (cancel_button_ == &button) cancel_button_ = nullptr;
}

void DialogKeyboard::MarkDefault(const NativeControl& focused) const {
  ShowDefault(default_button_, false);
  ShowDefault(&focused, true);
}

void DialogKeyboard::UnmarkDefault(const NativeControl& focused) const {
  ShowDefault(&focused, false);
  ShowDefault(default_button_, true);
}

}  // namespace quorvale
