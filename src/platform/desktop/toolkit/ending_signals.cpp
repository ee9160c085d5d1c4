#include "platform/desktop/toolkit/ending_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace quorvale {
namespace {

constexpr std::array<int, 3> kSignals{SIGTERM, SIGINT, SIGHUP};

// All that a signal handler can reach. Below 0 when nobody listens.
volatile std::sig_atomic_t wake_up_fd = -1;

void WakeUp(int /*signal*/) {
  // The signal may come between a call and the look at its error.
  const int error = errno;
  [[maybe_unused]] const auto written = write(wake_up_fd, "", 1);
  errno = error;
}

void Handle(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

EndingSignals::EndingSignals(std::function<void()> asked) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  read_end_ = FileDescriptor(ends[0]);
  write_end_ = FileDescriptor(ends[1]);
  notifier_.emplace(read_end_.Get(), QSocketNotifier::Read);
  QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this, handler = std::move(asked)] {
    std::array<char, 16> bytes{};
    [[maybe_unused]] const auto count = read(read_end_.Get(), bytes.data(), bytes.size());
    handler();
  });
  wake_up_fd = write_end_.Get();
  Handle(WakeUp);
}

EndingSignals::~EndingSignals() {
  Handle(SIG_DFL);
  wake_up_fd = -1;
}

}  // namespace quorvale
