#include "platform/win32/toolkit/message_peers.h"

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

void Win32TimerPeer::Set(int milliseconds) {
  KillTimer(Window(), countdown_);
  ++countdown_;
  if (milliseconds > 0) SetTimer(Window(), countdown_, static_cast<UINT>(milliseconds), nullptr);
}

LRESULT Win32TimerPeer::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message != WM_TIMER) return Default(message, first, second);
  if (first == countdown_) fired_();
  return 0;
}

}  // namespace quorvale
