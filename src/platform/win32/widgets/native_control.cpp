#include "platform/win32/widgets/native_control.h"

#include <commctrl.h>

#include <utility>

#include "base/failure.h"
#include "platform/common/deliver.h"
#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/widgets/dialog_window.h"
#include "toolkit/panels.h"

namespace quorvale {
namespace {

constexpr UINT_PTR kSubclass = 1;
// The property of a window that leads to its control.
constexpr wchar_t kControl[] = L"QuorvaleControl";

DWORD StyleOf(const Widget& widget, DWORD kind_style) {
  DWORD style = kind_style | WS_CHILD | WS_CLIPSIBLINGS;
  if (widget.Visible()) style |= WS_VISIBLE;
  if (!widget.Enabled()) style |= WS_DISABLED;
  return style;
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
  const auto control_of = [](LPARAM window) { return Of(reinterpret_cast<HWND>(window)); };
  switch (message) {
    case WM_COMMAND:
      if (NativeControl* const control = control_of(second)) return control->OnCommand(HIWORD(first)), true;
      return false;
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (NativeControl* const control = control_of(second)) return control->OnScroll(), true;
      return false;
    case WM_NOTIFY: {
      auto& notice = *reinterpret_cast<NMHDR*>(second);
      if (NativeControl* const control = Of(notice.hwndFrom)) return result = control->OnNotify(notice), true;
      return false;
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
      if (NativeControl* const control = Of(item.hwndItem)) return control->OnDraw(item), result = TRUE, true;
      return false;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
      NativeControl* const control = control_of(second);
      const HBRUSH brush = control != nullptr ? control->Background(reinterpret_cast<HDC>(first)) : nullptr;
      result = reinterpret_cast<LRESULT>(brush);
      return brush != nullptr;
    }
    default:
      return false;
  }
}

HBRUSH NativeControl::Background(HDC context) {
  const HBRUSH own = OnColour(context);
  if (own != nullptr || !dialog_.Page().IsUnder(widget_)) return own;
  return dialog_.Page().Brush(context);
}

void NativeControl::Refresh(WidgetAspect aspect) {
  switch (aspect) {
    case WidgetAspect::kPlace: {
      const PixelRect place = ToPixels(widget_.Place(), dialog_.Scale());
      SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
      break;
    }
    case WidgetAspect::kVisible:
      if (!widget_.Visible()) dialog_.LeaveSoon(window_);
      ShowWindow(window_, widget_.Visible() ? SW_SHOWNA : SW_HIDE);
      break;
    case WidgetAspect::kEnabled:
      if (!widget_.Enabled()) dialog_.LeaveSoon(window_);
      EnableWindow(window_, widget_.Enabled() ? TRUE : FALSE);
      break;
    case WidgetAspect::kCaption:
      SetWindowTextW(window_, ToWide(widget_.Caption()).c_str());
      break;
    default:
      InvalidateRect(window_, nullptr, TRUE);
      break;
  }
}

void NativeControl::DetachFromWindow() const {
  RemoveWindowSubclass(window_, &NativeControl::Procedure, kSubclass);
  RemovePropW(window_, kControl);
}

void NativeControl::TakeFocus() { dialog_.Focus(window_); }

void NativeControl::FollowScale() {
  SetFont(0, false);
  Refresh(WidgetAspect::kPlace);
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

}  // namespace quorvale
