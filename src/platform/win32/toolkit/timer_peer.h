#pragma once

#include <functional>
#include <utility>

#include "platform/win32/toolkit/native_window.h"
#include "toolkit/platform.h"

namespace quorvale {

// A timer of the system's at a window of its own, so that it fires in every event loop, those of the
// system's dialogs included.
class Win32TimerPeer : public TimerPeer, private NativeWindow {
 public:
  explicit Win32TimerPeer(std::function<void()> fired) : NativeWindow(0, 0, HWND_MESSAGE), fired_(std::move(fired)) {}

  void Set(int milliseconds) override;

 private:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  std::function<void()> fired_;
  // Each countdown has a number of its own: what an old one has left in the queue is known by it.
  UINT_PTR countdown_ = 0;
};

}  // namespace quorvale
