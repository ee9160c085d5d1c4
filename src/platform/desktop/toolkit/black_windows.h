#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "platform/desktop/toolkit/top_window.h"

namespace quorvale {

class BlackWindow;

// While it lives every monitor but the primary one is black, and input there is the saver window's.
class BlackWindows : public QObject {
  Q_OBJECT

 public:
  explicit BlackWindows(TopWindow& saver);
  ~BlackWindows() override;

  // Takes them off the screen for good. They are not destroyed yet: one of them may be delivering the very
  // event that ends the show.
  void Hide();

 private:
  void CoverMonitors();

  TopWindow& saver_;
  bool is_hidden_ = false;
  std::vector<std::unique_ptr<BlackWindow>> windows_;
};

}  // namespace quorvale
