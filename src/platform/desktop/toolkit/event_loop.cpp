#include "platform/desktop/toolkit/event_loop.h"

#include <fcntl.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QtGlobal>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

#include "platform/common/deliver.h"

namespace quorvale {
namespace {

constexpr std::array<int, 3> kEndingSignals{SIGTERM, SIGINT, SIGHUP};

// A signal handler can reach nothing else. Below 0 while no object listens.
volatile std::sig_atomic_t wake_up_fd = -1;

void WakeUp(int /*signal*/) {
  // The signal may come between a system call and the check of its error.
  const int error = errno;
  [[maybe_unused]] const auto written = write(wake_up_fd, "", 1);
  errno = error;
}

void SetSignalHandler(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : kEndingSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

void LogDroppedEvent(const char* reason) noexcept { qWarning("An event was dropped: %s", reason); }

EventLoop::EventLoop() : timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)) {
  if (!timer_.IsOpen()) return;
  notifier_.emplace(timer_.Get(), QSocketNotifier::Read);
  QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const auto count = read(timer_.Get(), &expirations, sizeof expirations);
  });
}

void EventLoop::RunPass() {
  QCoreApplication::processEvents();
  // Qt runs them when control is back in the loop that they were posted from, which may never be.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::chrono::nanoseconds EventLoop::Wait(std::chrono::nanoseconds time) {
  const auto start = std::chrono::steady_clock::now();
  // Without a timer nothing would end the wait.
  if (timer_.IsOpen() && time > std::chrono::nanoseconds::zero()) {
    Arm(time);
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    Arm(std::chrono::nanoseconds::zero());
  }
  return std::chrono::steady_clock::now() - start;
}

void EventLoop::Arm(std::chrono::nanoseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  itimerspec setting{};
  setting.it_value.tv_sec = seconds.count();
  setting.it_value.tv_nsec = (time - seconds).count();
  timerfd_settime(timer_.Get(), 0, &setting, nullptr);
}

QtTimerPeer::QtTimerPeer(std::function<void()> fired) {
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [handler = std::move(fired)] { Deliver(handler); });
}

void QtTimerPeer::Set(int milliseconds) {
  if (milliseconds > 0) {
    timer_.start(milliseconds);
  } else {
    timer_.stop();
  }
}

EndingSignals::EndingSignals(std::function<void()> arrived) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  read_end_ = FileDescriptor(ends[0]);
  write_end_ = FileDescriptor(ends[1]);
  notifier_.emplace(read_end_.Get(), QSocketNotifier::Read);
  QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this, handler = std::move(arrived)] {
    std::array<char, 16> bytes{};
    [[maybe_unused]] const auto count = read(read_end_.Get(), bytes.data(), bytes.size());
    handler();
  });
  wake_up_fd = write_end_.Get();
  SetSignalHandler(WakeUp);
}

EndingSignals::~EndingSignals() {
  SetSignalHandler(SIG_DFL);
  wake_up_fd = -1;
}

}  // namespace quorvale
