#include "platform/win32/toolkit/message_hook_peer.h"

#include <commctrl.h>

#include "platform/common/deliver.h"

namespace quorvale {

void Win32MessageHookPeer::Watch(WindowHandle window) {
  Release();
  auto* const handle = reinterpret_cast<HWND>(window);
  const auto self = reinterpret_cast<UINT_PTR>(this);
  if (SetWindowSubclass(handle, &Win32MessageHookPeer::Procedure, self, self) != 0) watched_ = handle;
}

LRESULT CALLBACK Win32MessageHookPeer::Procedure(HWND window, UINT message, WPARAM first, LPARAM second,
                                                 UINT_PTR /*id*/, DWORD_PTR self) {
  auto* const hook = reinterpret_cast<Win32MessageHookPeer*>(self);
  if (message == WM_NCDESTROY) hook->Release();
  Deliver([&] { hook->Arrived(message); });
  return DefSubclassProc(window, message, first, second);
}

void Win32MessageHookPeer::Release() {
  if (watched_ == nullptr) return;
  RemoveWindowSubclass(watched_, &Win32MessageHookPeer::Procedure, reinterpret_cast<UINT_PTR>(this));
  watched_ = nullptr;
}

void Win32MessageHookPeer::Arrived(UINT message) {
  const int number = static_cast<int>(message);
  if (reported_.contains(number)) arrived_(number);
}

}  // namespace quorvale
