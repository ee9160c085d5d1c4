#include "platform/win32/toolkit/event_wait.h"

#include "platform/win32/toolkit/event_loop.h"

namespace quorvale {
namespace {

constexpr DWORD kHighResolution = 0x2;  // CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, which older headers lack
constexpr UINT kCoarseMilliseconds = 1;
constexpr int kNanosecondsPerUnit = 100;

using PeriodFunction = UINT WINAPI(UINT milliseconds);

void CallWithPeriod(const LoadedLibrary& multimedia, const char* name) {
  if (auto* const call = multimedia.Find<PeriodFunction>(name)) call(kCoarseMilliseconds);
}

}  // namespace

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
  due.QuadPart = -static_cast<LONGLONG>(time.count() / kNanosecondsPerUnit);  // from now on
  if (time > std::chrono::nanoseconds::zero() && SetWaitableTimer(timer_, &due, 0, nullptr, nullptr, FALSE) != 0) {
    MsgWaitForMultipleObjectsEx(1, &timer_, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    CancelWaitableTimer(timer_);
    RunPass();
  }
  return std::chrono::steady_clock::now() - start;
}

}  // namespace quorvale
