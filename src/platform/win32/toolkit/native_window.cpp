#include "platform/win32/toolkit/native_window.h"

#include "base/failure.h"
#include "platform/common/deliver.h"

namespace quorvale {

NativeWindow::NativeWindow(DWORD style, DWORD extended_style, HWND parent)
    : window_(CreateWindowExW(extended_style, ClassName(), L"", style, 0, 0, 0, 0, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
  if (window_ == nullptr) throw Failure(FailureNumber::kInternal, "No window could be made", "NativeWindow");
  // Messages that come during the creation go to the system, since the object is not complete yet.
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

NativeWindow::~NativeWindow() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

NativeWindow* NativeWindow::Of(HWND window) {
  const bool is_ours = window != nullptr &&
                       reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC)) == &NativeWindow::Procedure;
  return is_ours ? reinterpret_cast<NativeWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA)) : nullptr;
}

LRESULT NativeWindow::Default(UINT message, WPARAM first, LPARAM second) const {
  return DefWindowProcW(window_, message, first, second);
}

LRESULT CALLBACK NativeWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const self = reinterpret_cast<NativeWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, first, second);
  if (message == WM_NCDESTROY) {
    self->window_ = nullptr;
    return DefWindowProcW(window, message, first, second);
  }
  LRESULT result = 0;
  Deliver([&] { result = self->OnMessage(message, first, second); });
  return result;
}

const wchar_t* NativeWindow::ClassName() {
  static constexpr const wchar_t* kName = L"QuorvaleWindow";
  static const bool is_registered = [] {
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = &NativeWindow::Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hIcon = LoadIconW(window_class.hInstance, MAKEINTRESOURCEW(1));
    window_class.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    window_class.lpszClassName = kName;
    return RegisterClassExW(&window_class) != 0;
  }();
  return is_registered ? kName : L"";
}

}  // namespace quorvale
