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

 private:
  void CoverMonitors();

  TopWindow& saver_;
  std::vector<std::unique_ptr<BlackWindow>> windows_;
};

}  // namespace quorvale
