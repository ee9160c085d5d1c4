#pragma once

#include <string>

#include "system/programs.h"

namespace quorvale {

class DesktopPrograms : public Programs {
 public:
  // No shell takes part: the command line is split at blanks outside double quotes, and the program is
  // looked for in PATH. What is started has no say in how its window shows, so `window_style` is ignored.
  void Start(const std::string& command_line, int window_style) override;

  // XScreenSaver's settings; where they aren't installed, nothing.
  void OpenDisplaySettings() override;

  // Nothing: the desktops have their savers chosen by hand, and on Wayland no program may type for another.
  void SendKeys(const std::string& /*keys*/) override {}
};

}  // namespace quorvale
