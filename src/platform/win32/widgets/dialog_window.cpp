#include "platform/win32/widgets/dialog_window.h"

#include <commctrl.h>

#include <utility>

#include "platform/win32/toolkit/deliver.h"
#include "platform/win32/toolkit/event_loop.h"
#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/widgets/menu_bar.h"
#include "platform/win32/widgets/native_control.h"
#include "platform/win32/widgets/tab_order.h"
#include "toolkit/widget.h"

namespace quorvale {
namespace {

constexpr UINT kLeave = WM_APP + 20;

// Enough for a line of explanation before it wraps.
constexpr int kToolTipWidth = 300;

HWND MakeToolTips(HWND owner) {
  const HWND tips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                                    0, 0, 0, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, kToolTipWidth);
  return tips;
}

void ShowDefault(const NativeControl* button, bool is_default) {
  if (button == nullptr) return;
  SendMessageW(button->Window(), BM_SETSTYLE, is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

struct Others {
  HWND self;
  std::vector<HWND> windows;
};

BOOL CALLBACK AddIfTakingInput(HWND window, LPARAM others) {
  auto& list = *reinterpret_cast<Others*>(others);
  if (window != list.self && IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0) {
    Deliver([&] { list.windows.push_back(window); });
  }
  return TRUE;
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

BOOL CALLBACK FollowScaleOf(HWND window, LPARAM /*unused*/) {
  if (NativeControl* const control = NativeControl::Of(window)) {
    Deliver([&] { control->FollowScale(); });
  } else {
    SendMessageW(window, kScaleChanged, 0, 0);
  }
  return TRUE;
}

}  // namespace

DialogWindow::DialogWindow(PixelKind pixels, WindowEvents& events)
    : TopWindow(WindowKind::kDialog, pixels, events),
      fonts_(std::make_unique<DialogFonts>(Scale())),
      tool_tips_(MakeToolTips(Window())) {}

DialogWindow::~DialogWindow() { LetOthersTakeInput(); }

void DialogWindow::Appear() {
  if (!std::exchange(is_arranged_, true)) ArrangeTabOrder(Window());
  // A window above the one that the user was at stays above it.
  const HWND active = GetActiveWindow();
  if (active != nullptr && active != Window() && IsWindowVisible(active) != 0) {
    SetWindowLongPtrW(Window(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(active));
  }
  TopWindow::Appear();
  if (focus_ == nullptr) Focus(NextTabStop(Window(), nullptr, false));
}

// The others take input again first, or the system would make another program's window the active one.
void DialogWindow::Hide() {
  LetOthersTakeInput();
  TopWindow::Hide();
}

void DialogWindow::RunModal() {
  const HWND window = Window();
  Others others{window, {}};
  EnumThreadWindows(GetCurrentThreadId(), &AddIfTakingInput, reinterpret_cast<LPARAM>(&others));
  held_back_ = std::move(others.windows);
  for (const HWND other : held_back_) EnableWindow(other, FALSE);
  RunEventsUntil([window] { return IsWindowVisible(window) == 0; });
}

void DialogWindow::LetOthersTakeInput() {
  for (const HWND other : std::exchange(held_back_, {})) EnableWindow(other, TRUE);
}

HWND DialogWindow::ContainerOf(const Widget& widget) const {
  const auto found = containers_.find(widget.Design().container);
  return found != containers_.end() ? found->second : Window();
}

void DialogWindow::AddToolTip(HWND control, const std::string& text) const {
  if (text.empty()) return;
  std::wstring wide = ToWide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = Window();
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = wide.data();
  SendMessageW(tool_tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void DialogWindow::Focus(HWND control) {
  focus_ = control;
  if (IsWindowVisible(Window()) != 0) SetFocus(control);
}

void DialogWindow::LeaveSoon(HWND control) const {
  const HWND focus = GetFocus();
  if (focus == control || IsChild(control, focus) != 0) {
    PostMessageW(Window(), kLeave, reinterpret_cast<WPARAM>(control), 0);
  }
}

// The handler may have given the focus to another itself, or the control back its own.
void DialogWindow::Leave(HWND control) const {
  const HWND focus = GetFocus();
  const bool is_well = focus != nullptr && IsWindowVisible(focus) != 0 && IsWindowEnabled(focus) != 0 &&
                       (GetWindowLongW(focus, GWL_STYLE) & WS_TABSTOP) != 0;
  if (!is_well) SetFocus(NextTabStop(Window(), control, false));
}

void DialogWindow::ForgetButton(const NativeControl& button) {
  if (default_button_ == &button) default_button_ = nullptr;
  if (cancel_button_ == &button) cancel_button_ = nullptr;
}

// The client area keeps its size under a menu.
void DialogWindow::SetMenuBar(Win32MenuBar* bar) {
  menu_bar_ = bar;
  SetMenu(Window(), bar != nullptr ? bar->Menu() : nullptr);
  Place();
}

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

LRESULT DialogWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
  LRESULT result = 0;
  if (NativeControl::Reflect(message, first, second, result)) return result;
  switch (message) {
    case WM_COMMAND:
      if (menu_bar_ != nullptr && menu_bar_->Choose(LOWORD(first))) return 0;
      break;
    case WM_ENTERMENULOOP:
    case WM_EXITMENULOOP:
      if (menu_bar_ != nullptr) menu_bar_->SetOpen(message == WM_ENTERMENULOOP);
      break;
    case WM_INITMENUPOPUP:
      if (menu_bar_ != nullptr) menu_bar_->Opens(reinterpret_cast<HMENU>(first));
      return 0;
    case kLeave:
      Leave(reinterpret_cast<HWND>(first));
      return 0;
    case WM_NEXTDLGCTL:
      // The access key of a label gives the focus to the label and moves it on.
      if (LOWORD(second) != 0) {
        SetFocus(reinterpret_cast<HWND>(first));
      } else {
        MoveFocus(first != 0);
      }
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(first) == WA_INACTIVE && IsChild(Window(), GetFocus()) != 0) focus_ = GetFocus();
      break;
    case WM_SETFOCUS:
      if (focus_ != nullptr) SetFocus(focus_);
      return 0;
    case WM_DPICHANGED:
      FollowScale(HIWORD(first));
      return 0;
    default:
      break;
  }
  return TopWindow::OnMessage(message, first, second);
}

// The fonts that the controls give up go only when all have new ones.
void DialogWindow::FollowScale(int dpi) {
  SetDpi(dpi);
  const auto old_fonts = std::exchange(fonts_, std::make_unique<DialogFonts>(Scale()));
  Place();
  EnumChildWindows(Window(), &FollowScaleOf, 0);
}

}  // namespace quorvale
