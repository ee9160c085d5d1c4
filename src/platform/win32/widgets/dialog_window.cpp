#include "platform/win32/widgets/dialog_window.h"

#include <commctrl.h>

#include <utility>

#include "platform/common/deliver.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/toolkit/event_loop.h"
#include "platform/win32/widgets/menu_bar.h"
#include "platform/win32/widgets/native_control.h"
#include "toolkit/control.h"

namespace quorvale {
namespace {

constexpr UINT kMoveFocusFrom = WM_APP + 20;

// At the usual resolution, in pixels. Longer tool tips wrap.
constexpr int kToolTipWidth = 300;

HWND MakeToolTips(HWND owner) {
  return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
                         owner, nullptr, GetModuleHandleW(nullptr), nullptr);
}

struct OtherWindows {
  HWND self;
  std::vector<HWND> windows;
};

BOOL CALLBACK AddIfEnabled(HWND window, LPARAM others) {
  auto& list = *reinterpret_cast<OtherWindows*>(others);
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

BOOL CALLBACK SendColourChange(HWND window, LPARAM /*unused*/) {
  SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
  return TRUE;
}

}  // namespace

DialogWindow::DialogWindow(PixelKind pixels, WindowEvents& events)
    : TopWindow(WindowKind::kDialog, pixels, events),
      fonts_(std::make_unique<DialogFonts>(Scale())),
      tool_tips_(MakeToolTips(Window())),
      keyboard_(Window()) {
  FitToolTips(DpiOf(Window()));
}

DialogWindow::~DialogWindow() { EnableOthers(); }

void DialogWindow::Appear() {
  if (!std::exchange(is_arranged_, true)) {
    keyboard_.ArrangeControls();
    NameForScreenReaders(Window());
  }
  // The window that is active now becomes the owner, so this one stays above it.
  const HWND active = GetActiveWindow();
  if (active != nullptr && active != Window() && IsWindowVisible(active) != 0) {
    SetWindowLongPtrW(Window(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(active));
  }
  TopWindow::Appear();
  if (focus_ == nullptr) Focus(keyboard_.NextTabStop(nullptr, false));
}

// Enables the other windows first, or the system would activate a window of another program.
void DialogWindow::Hide() {
  EnableOthers();
  TopWindow::Hide();
  // The modal loop waits for a posted message, and may have been called by a sent one.
  PostMessageW(Window(), WM_NULL, 0, 0);
}

void DialogWindow::RunModal() {
  const HWND window = Window();
  OtherWindows others{window, {}};
  EnumThreadWindows(GetCurrentThreadId(), &AddIfEnabled, reinterpret_cast<LPARAM>(&others));
  disabled_ = std::move(others.windows);
  for (const HWND other : disabled_) EnableWindow(other, FALSE);
  RunEventsUntil([window] { return IsWindowVisible(window) == 0; });
}

void DialogWindow::EnableOthers() {
  for (const HWND other : std::exchange(disabled_, {})) EnableWindow(other, TRUE);
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

void DialogWindow::MoveFocusFromSoon(HWND control) const {
  const HWND focus = GetFocus();
  if (focus == control || IsChild(control, focus) != 0) {
    PostMessageW(Window(), kMoveFocusFrom, reinterpret_cast<WPARAM>(control), 0);
  }
}

// Meanwhile the handler may have moved the focus, or enabled the control again.
void DialogWindow::MoveFocusFrom(HWND control) const {
  const HWND focus = GetFocus();
  const bool is_usable = focus != nullptr && IsWindowVisible(focus) != 0 && IsWindowEnabled(focus) != 0 &&
                         (GetWindowLongW(focus, GWL_STYLE) & WS_TABSTOP) != 0;
  if (!is_usable) SetFocus(keyboard_.NextTabStop(control, false));
}

// `Place` keeps the size of the client area.
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
  return keyboard_.Translate(message);
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
    case kMoveFocusFrom:
      MoveFocusFrom(reinterpret_cast<HWND>(first));
      return 0;
    case WM_NEXTDLGCTL:
      // The system sends this for the access key of a label, whose next control gets the focus.
      if (LOWORD(second) != 0) {
        SetFocus(reinterpret_cast<HWND>(first));
      } else {
        keyboard_.MoveFocus(first != 0);
      }
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(first) == WA_INACTIVE && IsChild(Window(), GetFocus()) != 0) focus_ = GetFocus();
      break;
    case WM_SETFOCUS:
      if (focus_ != nullptr) SetFocus(focus_);
      return 0;
    case WM_SYSCOLORCHANGE:
      // The system sends it to the dialog alone.
      EnumChildWindows(Window(), &SendColourChange, 0);
      [[fallthrough]];
    case WM_THEMECHANGED:
      page_.Reset();
      break;
    case WM_DPICHANGED:
      FollowScale(HIWORD(first), *reinterpret_cast<const RECT*>(second));
      return 0;
    default:
      break;
  }
  return TopWindow::OnMessage(message, first, second);
}

// Keeps the old fonts until all controls have new ones.
void DialogWindow::FollowScale(int dpi, const RECT& wanted) {
  SetDpi(dpi, MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST));
  const auto old_fonts = std::exchange(fonts_, std::make_unique<DialogFonts>(Scale()));
  FitToolTips(dpi);
  page_.Reset();
  PlaceAt({wanted.left, wanted.top});
  EnumChildWindows(Window(), &FollowScaleOf, 0);
}

// The system makes their font for the primary monitor.
void DialogWindow::FitToolTips(int dpi) {
  const LOGFONTW description = ReadUserFonts(dpi).tool_tips;
  GdiFont font(CreateFontIndirectW(&description));
  SendMessageW(tool_tips_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
  SendMessageW(tool_tips_, TTM_SETMAXTIPWIDTH, 0, MulDiv(kToolTipWidth, dpi, kUsualDpi));
  tool_tip_font_ = std::move(font);
}

}  // namespace quorvale
