#include "platform/win32/toolkit/event_loop.h"

#include "platform/common/deliver.h"
#include "platform/win32/toolkit/native_window.h"

namespace quorvale {
namespace {

// The window that a key's window belongs to may translate the key.
bool TranslateKey(MSG& message) {
  bool is_handled = false;
  if (NativeWindow* const window = NativeWindow::Of(GetAncestor(message.hwnd, GA_ROOT))) {
    Deliver([&] { is_handled = window->TranslateKey(message); });
  }
  return is_handled;
}

void Dispatch(MSG& message) {
  if (TranslateKey(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

constexpr DWORD kHighResolution = 0x2;  // CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, which older headers lack
constexpr UINT kCoarseMilliseconds = 1;
constexpr int kNanosecondsPerUnit = 100;

using PeriodFunction = UINT WINAPI(UINT milliseconds);

void CallWithPeriod(const LoadedLibrary& multimedia, const char* name) {
  if (auto* const call = multimedia.Find<PeriodFunction>(name)) call(kCoarseMilliseconds);
}

}  // namespace

void LogDroppedEvent(const char* reason) noexcept { OutputDebugStringA(reason); }

void RunPass() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.message == WM_QUIT) {
      // Posted again, for the loop that surrounds this one.
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

EventWait::EventWait()
    : timer_(CreateWaitableTimerExW(nullptr, nullptr, kHighResolution, TIMER_MODIFY_STATE | SYNCHRONIZE)) {
  if (timer_ != nullptr) return;
  timer_ = CreateWaitableTimerW(nullptr, FALSE, nullptr);
  multimedia_.emplace("winmm.dll");
  CallWithPeriod(*multimedia_, "timeBeginPeriod");
}

EventWait::~EventWait() {
  if (multimedia_) CallWithPeriod(*multimedia_, "timeEndPeriod");
  if (timer_ != nullptr) CloseHandle(timer_);
}

void EventWait::RunPass() { quorvale::RunPass(); }

std::chrono::nanoseconds EventWait::Wait(std::chrono::nanoseconds time) {
  const auto start = std::chrono::steady_clock::now();
  LARGE_INTEGER due{};
  due.QuadPart = -static_cast<LONGLONG>(time.count() / kNanosecondsPerUnit);  // negative: relative to now
  if (time > std::chrono::nanoseconds::zero() && SetWaitableTimer(timer_, &due, 0, nullptr, nullptr, FALSE) != 0) {
    MsgWaitForMultipleObjectsEx(1, &timer_, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    CancelWaitableTimer(timer_);
    RunPass();
  }
  return std::chrono::steady_clock::now() - start;
}

}  // namespace quorvale
