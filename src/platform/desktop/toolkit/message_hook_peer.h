#pragma once

#include <QObject>
#include <functional>
#include <set>
#include <utility>

#include "toolkit/platform.h"

namespace quorvale {

// Reports what corresponds to a window message on Linux: a picture box that is asked to close, for WM_CLOSE, and
// the menus of a dialog that have all closed, for WM_EXITMENULOOP.
class QtMessageHookPeer : public MessageHookPeer {
 public:
  explicit QtMessageHookPeer(std::function<void(int message)> arrived) : arrived_(std::move(arrived)) {}

  void Watch(WindowHandle window) override;
  void Report(int message) override { reported_.insert(message); }

 private:
  void Arrived(int message);

  std::function<void(int message)> arrived_;
  std::set<int> reported_;
  // Cuts the connection to the window when the peer goes.
  QObject connection_;
};

}  // namespace quorvale
