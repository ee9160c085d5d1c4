#include "platform/win32/widgets/native_control.h"

#include <commctrl.h>
#include <oleacc.h>

#include "base/failure.h"
#include "platform/common/deliver.h"
#include "platform/win32/system/com.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/widgets/dialog_window.h"
#include "toolkit/panels.h"

namespace quorvale {
namespace {

constexpr UINT_PTR kSubclass = 1;
// The window property that holds the control.
constexpr wchar_t kControl[] = L"QuorvaleControl";

DWORD StyleOf(const Widget& widget, DWORD kind_style) {
  DWORD style = kind_style | WS_CHILD | WS_CLIPSIBLINGS;
  if (widget.Visible()) style |= WS_VISIBLE;
  if (!widget.Enabled()) style |= WS_DISABLED;
  if (widget.IsTabStop()) style |= WS_TABSTOP;
  return style;
}

BOOL CALLBACK AddName(HWND window, LPARAM list) {
  const NativeControl* const control = NativeControl::Of(window);
  if (control == nullptr) return TRUE;
  Deliver([&] {
    const std::string name = control->ShowsCaption() ? std::string() : control->NameToSpeak();
    reinterpret_cast<std::vector<std::pair<HWND, std::wstring>>*>(list)->emplace_back(window, ToWide(name));
  });
  return TRUE;
}

}  // namespace

NativeControl::NativeControl(DialogWindow& dialog, Widget& widget, const ControlKind& kind)
    : dialog_(dialog), widget_(widget) {
  const PixelRect place = ToPixels(widget.Place(), dialog.Scale());
  window_ = CreateWindowExW(kind.extended_style, kind.class_name, ToWide(widget.Caption()).c_str(),
                            StyleOf(widget, kind.style), place.left, place.top, place.width, place.height,
                            dialog.ContainerOf(widget), nullptr, GetModuleHandleW(nullptr), nullptr);
  if (window_ == nullptr) throw Failure(FailureNumber::kInternal, "A control could not be made", widget.Name());
  SetPropW(window_, kControl, this);
  SetWindowSubclass(window_, &NativeControl::Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  SetFont(0, false);
  dialog.SetToolTip(window_, widget.Design().tool_tip);
}

NativeControl::~NativeControl() {
  if (window_ == nullptr) return;
  DetachFromWindow();
  DestroyWindow(std::exchange(window_, nullptr));
}

NativeControl* NativeControl::Of(HWND window) { return static_cast<NativeControl*>(GetPropW(window, kControl)); }

bool NativeControl::Reflect(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  NativeControl* control = nullptr;
  switch (message) {
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      control = Of(reinterpret_cast<HWND>(second));
      break;
    case WM_NOTIFY:
      control = Of(reinterpret_cast<const NMHDR*>(second)->hwndFrom);
      break;
    case WM_DRAWITEM:
      control = Of(reinterpret_cast<const DRAWITEMSTRUCT*>(second)->hwndItem);
      break;
    default:
      break;
  }
  if (control == nullptr) return false;
  switch (message) {
    case WM_COMMAND:
      control->OnCommand(HIWORD(first));
      return true;
    case WM_NOTIFY:
      result = control->OnNotify(*reinterpret_cast<NMHDR*>(second));
      return true;
    case WM_DRAWITEM:
      control->OnDraw(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
      result = TRUE;
      return true;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      result = reinterpret_cast<LRESULT>(control->Background(reinterpret_cast<HDC>(first)));
      return result != 0;
    default:
      control->OnScroll();
      return true;
  }
}

HBRUSH NativeControl::Background(HDC context) {
  const HBRUSH own = OnColour(context);
  if (own != nullptr || !dialog_.Page().IsBehind(widget_)) return own;
  return dialog_.Page().Brush(context);
}

void NativeControl::Refresh(WidgetAspect aspect) {
  switch (aspect) {
    case WidgetAspect::kPlace:
      Place();
      break;
    case WidgetAspect::kVisible:
      if (!widget_.Visible()) dialog_.MoveFocusFromSoon(window_);
      ShowWindow(window_, widget_.Visible() ? SW_SHOWNA : SW_HIDE);
      break;
    case WidgetAspect::kEnabled:
      if (!widget_.Enabled()) dialog_.MoveFocusFromSoon(window_);
      EnableWindow(window_, widget_.Enabled() ? TRUE : FALSE);
      break;
    case WidgetAspect::kCaption:
      SetWindowTextW(window_, ToWide(widget_.Caption()).c_str());
      NameForScreenReaders(window_);
      break;
    case WidgetAspect::kColour:
      NameForScreenReaders(window_);
      InvalidateRect(window_, nullptr, TRUE);
      break;
    case WidgetAspect::kValue:
      ShowValue();
      break;
    default:
      InvalidateRect(window_, nullptr, TRUE);
      break;
  }
}

void NativeControl::Place() const {
  const PixelRect place = ToPixels(widget_.Place(), dialog_.Scale());
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void NativeControl::DetachFromWindow() const {
  RemoveWindowSubclass(window_, &NativeControl::Procedure, kSubclass);
  RemovePropW(window_, kControl);
}

void NativeControl::TakeFocus() { dialog_.Focus(window_); }

void NativeControl::FollowScale() {
  SetFont(0, false);
  Place();
}

LRESULT NativeControl::Default(UINT message, WPARAM first, LPARAM second) const {
  return DefSubclassProc(window_, message, first, second);
}

void NativeControl::SetFont(float points, bool bold) {
  Send(WM_SETFONT, reinterpret_cast<WPARAM>(dialog_.FontOf(points, bold)), TRUE);
}

LRESULT CALLBACK NativeControl::Procedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR /*id*/,
                                          DWORD_PTR self) {
  auto* const control = reinterpret_cast<NativeControl*>(self);
  if (message == WM_NCDESTROY) {
    control->DetachFromWindow();
    control->window_ = nullptr;
    return DefSubclassProc(window, message, first, second);
  }
  LRESULT result = 0;
  Deliver([&] { result = control->OnMessage(message, first, second); });
  return result;
}

std::vector<std::pair<HWND, std::wstring>> NamesToSpeak(HWND window) {
  std::vector<std::pair<HWND, std::wstring>> names;
  AddName(window, reinterpret_cast<LPARAM>(&names));
  EnumChildWindows(window, &AddName, reinterpret_cast<LPARAM>(&names));
  return names;
}

void NameForScreenReaders(HWND window) {
  ComPointer<IAccPropServices> services;
  const HRESULT made = CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                        reinterpret_cast<void**>(services.Out()));
  if (FAILED(made)) return;
  for (const auto& [control, name] : NamesToSpeak(window)) {
    constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);
    if (name.empty()) {
      services->ClearHwndProps(control, kClient, CHILDID_SELF, &PROPID_ACC_NAME, 1);
    } else {
      services->SetHwndPropStr(control, kClient, CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
    }
    if (!NativeControl::Of(control)->IsLink()) continue;
    VARIANT role{};
    role.vt = VT_I4;
    role.lVal = ROLE_SYSTEM_LINK;
    services->SetHwndProp(control, kClient, CHILDID_SELF, PROPID_ACC_ROLE, role);
  }
}

}  // namespace quorvale
