#include "platform/win32/toolkit/event_loop.h"

#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

void Dispatch(const MSG& message) {
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace

void RunPass() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.message == WM_QUIT) {
      // For the loop around this one.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Dispatch(message);
  }
}

void RunEventsUntil(const std::function<bool()>& over) {
  MSG message{};
  while (!over()) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Dispatch(message);
  }
}

int RunEventLoop() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) Dispatch(message);
  return static_cast<int>(message.wParam);
}

void EndEventLoop() { PostQuitMessage(0); }

}  // namespace quorvale
