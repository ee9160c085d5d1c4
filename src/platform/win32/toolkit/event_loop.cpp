#include "platform/win32/toolkit/event_loop.h"

#include "platform/common/deliver.h"
#include "platform/win32/toolkit/native_window.h"

namespace quorvale {
namespace {

// Keys of a dialog go to its window first.
bool TranslateKey(MSG& message) {
  bool is_done = false;
  if (NativeWindow* const window = NativeWindow::Of(GetAncestor(message.hwnd, GA_ROOT))) {
    Deliver([&] { is_done = window->TranslateKey(message); });
  }
  return is_done;
}

void Dispatch(MSG& message) {
  if (TranslateKey(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace

void LogDroppedEvent(const char* reason) noexcept { OutputDebugStringA(reason); }

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
