#include "platform/win32/widgets/dialog_window.h"

#include <commctrl.h>

#include <utility>

#include "platform/common/deliver.h"
#include "platform/win32/toolkit/event_loop.h"
#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/widgets/accessible_names.h"
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
  if (!std::exchange(is_arranged_, true)) {
    ArrangeTabOrder(Window());
    NameControls(Window());
  }
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
  // A message that was sent, not posted, does not end the modal loop's wait.
  PostMessageW(Window(), WM_NULL, 0, 0);
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

void DialogWindow::SetToolTip(HWND control, const std::string& text) const {
  std::wstring wide = ToWide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = Window();
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = wide.data();
  SendMessageW(tool_tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) SendMessageW(tool_tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
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
    case WM_THEMECHANGED:
    case WM_SYSCOLORCHANGE:
      page_.Forget();
      break;
    case WM_DPICHANGED:
      FollowScale(HIWORD(first), *reinterpret_cast<const RECT*>(second));
      return 0;
    default:
      break;
  }
  return TopWindow::OnMessage(message, first, second);
}

// The fonts that the controls give up go only when all have new ones.
void DialogWindow::FollowScale(int dpi, const RECT& wanted) {
  SetDpi(dpi, MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST));
  const auto old_fonts = std::exchange(fonts_, std::make_unique<DialogFonts>(Scale()));
  page_.Forget();
  PlaceAt({wanted.left, wanted.top});
  EnumChildWindows(Window(), &FollowScaleOf, 0);
}

}  // namespace quorvale
