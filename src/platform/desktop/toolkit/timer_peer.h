#pragma once

#include <QTimer>
#include <functional>

#include "toolkit/platform.h"

namespace quorvale {

class QtTimerPeer : public TimerPeer {
 public:
  explicit QtTimerPeer(std::function<void()> fired);

  void Set(int milliseconds) override;

 private:
  QTimer timer_;
};

}  // namespace quorvale
