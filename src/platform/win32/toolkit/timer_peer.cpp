#include "platform/win32/toolkit/timer_peer.h"

namespace quorvale {

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
