#pragma once

#include <memory>
#include <vector>

#include "platform/desktop/toolkit/screen_watch.h"
#include "platform/desktop/toolkit/top_window.h"

namespace quorvale {

class BlackWindow;

// While it lives every monitor but the primary one is black, and input there is the saver window's.
class BlackWindows {
 public:
  explicit BlackWindows(TopWindow& saver);
  ~BlackWindows();
  BlackWindows(const BlackWindows&) = delete;
  BlackWindows& operator=(const BlackWindows&) = delete;

  // Takes them off the screen for good. They are not destroyed yet: one of them may be delivering the very
  // event that ends the show.
  void Hide();

 private:
  void CoverMonitors();

  TopWindow& saver_;
  bool is_hidden_ = false;
  std::vector<std::unique_ptr<BlackWindow>> windows_;
  ScreenWatch screen_watch_;
};

}  // namespace quorvale
