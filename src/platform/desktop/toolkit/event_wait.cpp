#include "platform/desktop/toolkit/event_wait.h"

#include <sys/timerfd.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QtGlobal>
#include <cstdint>

namespace quorvale {

void LogDroppedEvent(const char* reason) noexcept { qWarning("An event was dropped: %s", reason); }

EventWait::EventWait() : timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
  if (!timer_.IsOpen()) return;
  notifier_.emplace(timer_.Get(), QSocketNotifier::Read);
  QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const auto count = read(timer_.Get(), &expirations, sizeof expirations);
  });
}

void EventWait::RunPass() {
  QCoreApplication::processEvents();
  // The loop that these wait for may never be reached again.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::chrono::nanoseconds EventWait::Wait(std::chrono::nanoseconds time) {
  const auto start = std::chrono::steady_clock::now();
  // Without a timer nothing would end the wait.
  if (timer_.IsOpen() && time > std::chrono::nanoseconds::zero()) {
    Arm(time);
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    Arm(std::chrono::nanoseconds::zero());
  }
  return std::chrono::steady_clock::now() - start;
}

void EventWait::Arm(std::chrono::nanoseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  itimerspec setting{};
  setting.it_value.tv_sec = seconds.count();
  setting.it_value.tv_nsec = (time - seconds).count();
  timerfd_settime(timer_.Get(), 0, &setting, nullptr);
}

}  // namespace quorvale
