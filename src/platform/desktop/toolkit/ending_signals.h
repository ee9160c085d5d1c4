#pragma once

#include <QSocketNotifier>
#include <functional>
#include <optional>

#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// Turns the signals that ask a program to end into an event. One object at a time.
class EndingSignals {
 public:
  explicit EndingSignals(std::function<void()> asked);
  ~EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

 private:
  FileDescriptor read_end_;
  FileDescriptor write_end_;
  std::optional<QSocketNotifier> notifier_;
};

}  // namespace quorvale
