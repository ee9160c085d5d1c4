#include "platform/desktop/toolkit/timer_peer.h"

#include <utility>

#include "platform/common/deliver.h"

namespace quorvale {

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

}  // namespace quorvale
