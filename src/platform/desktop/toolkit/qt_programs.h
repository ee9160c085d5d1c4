#pragma once

#include <string>

#include "platform/desktop/system/desktop_programs.h"

namespace quorvale {

class QtPrograms : public DesktopPrograms {
 public:
  // "{F1}" goes to the window of ours that has the focus. Keys for other programs go nowhere: the desktops have
  // their savers chosen by hand, and on Wayland no program may type for another.
  void SendKeys(const std::string& keys) override;
};

}  // namespace quorvale
