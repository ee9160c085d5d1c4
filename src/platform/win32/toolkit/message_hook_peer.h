#pragma once

#include <functional>
#include <set>
#include <utility>

#include "platform/win32/windows_api.h"
#include "toolkit/platform.h"

namespace quorvale {

// Subclasses a window of this program and reports messages on their way to it.
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

}  // namespace quorvale
