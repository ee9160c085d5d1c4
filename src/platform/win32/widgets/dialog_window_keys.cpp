#include "platform/common/deliver.h"
#include "platform/win32/widgets/dialog_window.h"
#include "platform/win32/widgets/menu_bar.h"
#include "platform/win32/widgets/native_control.h"
#include "platform/win32/widgets/tab_order.h"

namespace quorvale {
namespace {

void ShowDefault(const NativeControl* button, bool is_default) {
  if (button == nullptr) return;
  SendMessageW(button->Window(), BM_SETSTYLE, is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

struct AccessKey {
  wchar_t key;
  bool is_taken;
};

BOOL CALLBACK OfferAccessKey(HWND window, LPARAM pressed) {
  auto& access = *reinterpret_cast<AccessKey*>(pressed);
  NativeControl* const control = NativeControl::Of(window);
  if (control != nullptr) Deliver([&] { access.is_taken = control->TakeAccessKey(access.key); });
  return access.is_taken ? FALSE : TRUE;
}

}  // namespace

bool DialogWindow::TranslateKey(MSG& message) {
  if (menu_bar_ != nullptr && menu_bar_->TranslateKey(Window(), message)) return true;
  if (message.message == WM_KEYDOWN && message.wParam == VK_F1) {
    Events().OnHelpRequested();
    return true;
  }
  if (message.message == WM_SYSCHAR && TakeAccessKey(static_cast<wchar_t>(message.wParam))) return true;
  return TranslateDialogKey(message) || IsDialogMessageW(Window(), &message) != 0;
}

// The keys for which the system needs its own kind of dialog, whose frames are in the tab order one by one.
bool DialogWindow::TranslateDialogKey(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  const WPARAM key = message.wParam;
  if (key != VK_TAB && key != VK_RETURN && key != VK_ESCAPE) return false;
  // An open list takes them for itself.
  const LRESULT wishes = SendMessageW(message.hwnd, WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&message));
  if ((wishes & (DLGC_WANTALLKEYS | DLGC_WANTMESSAGE)) != 0) return false;
  if (key == VK_TAB) {
    MoveFocus(GetKeyState(VK_SHIFT) < 0);
  } else if (key == VK_RETURN) {
    PressDefault();
  } else if (cancel_button_ != nullptr) {
    cancel_button_->Press();
  }
  return true;
}

void DialogWindow::MoveFocus(bool backwards) const {
  const HWND next = NextTabStop(Window(), GetFocus(), backwards);
  SetFocus(next);
  if ((SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) SendMessageW(next, EM_SETSEL, 0, -1);
}

// For what the system gives no access keys.
bool DialogWindow::TakeAccessKey(wchar_t key) const {
  AccessKey pressed{key, false};
  EnumChildWindows(Window(), &OfferAccessKey, reinterpret_cast<LPARAM>(&pressed));
  return pressed.is_taken;
}

void DialogWindow::PressDefault() const {
  NativeControl* const focused = NativeControl::Of(GetFocus());
  NativeControl* const button = focused != nullptr && focused->IsButton() ? focused : default_button_;
  if (button != nullptr) button->Press();
}

void DialogWindow::MarkDefault(const NativeControl& focused) const {
  ShowDefault(default_button_, false);
  ShowDefault(&focused, true);
}

void DialogWindow::UnmarkDefault(const NativeControl& focused) const {
  ShowDefault(&focused, false);
  ShowDefault(default_button_, true);
}

}  // namespace quorvale
