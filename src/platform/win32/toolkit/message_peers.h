#pragma once

#include <functional>
#include <set>
#include <utility>

#include "platform/win32/toolkit/native_window.h"
#include "toolkit/platform.h"

namespace quorvale {

// Subclasses a window of this program and reports its messages before the window handles them.
class Win32MessageHookPeer : public MessageHookPeer {
 public:
  explicit Win32MessageHookPeer(std::function<void(int message)> arrived) : arrived_(std::move(arrived)) {}
  ~Win32MessageHookPeer() override { Release(); }
  Win32MessageHookPeer(const Win32MessageHookPeer&) = delete;
  Win32MessageHookPeer& operator=(const Win32MessageHookPeer&) = delete;

  void Watch(WindowHandle window) override;
  void Report(int message) override { reported_.insert(message); }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                                    DWORD_PTR self);
  void Release();
  void Arrived(UINT message);

  std::function<void(int message)> arrived_;
  std::set<int> reported_;
  HWND watched_ = nullptr;
};

// A timer on a window of its own, so that it also fires while one of the system's dialogs runs its own message loop.
class Win32TimerPeer : public TimerPeer, private NativeWindow {
 public:
  explicit Win32TimerPeer(std::function<void()> fired) : NativeWindow(0, 0, HWND_MESSAGE), fired_(std::move(fired)) {}

  void Set(int milliseconds) override;

 private:
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

  std::function<void()> fired_;
  // Counts the calls of `Set`. A message of an earlier countdown may still be in the queue; its number gives it away.
  UINT_PTR countdown_ = 0;
};

}  // namespace quorvale
