#pragma once

#include <memory>
#include <vector>

namespace quorvale {

class BlackWindow;
class TopWindow;

// While they show every monitor but the primary one is black, and input there is the saver window's.
class BlackWindows {
 public:
  // `saver` outlives them.
  explicit BlackWindows(TopWindow& saver);
  ~BlackWindows();
  BlackWindows(const BlackWindows&) = delete;
  BlackWindows& operator=(const BlackWindows&) = delete;

  // Follows the monitors that there are now.
  void CoverMonitors();
  // Takes them off the screen for good.
  void Hide();

 private:
  TopWindow& saver_;
  bool is_hidden_ = false;
  std::vector<std::unique_ptr<BlackWindow>> windows_;
};

}  // namespace quorvale
