#pragma once

#include <cstdint>
#include <string>

#include "platform/desktop/system/help_window.h"
#include "system/programs.h"

namespace quorvale {

class DesktopPrograms : public Programs {
 public:
  // No shell takes part: the command line is split at blanks outside double quotes, and the program is
  // looked for in PATH. What is started has no say in how its window shows, so `window_style` is ignored.
  void Start(const std::string& command_line, int window_style) override;

  // XScreenSaver's settings; where they aren't installed, nothing.
  void OpenDisplaySettings() override;

  // With the desktop's program for it, whatever the verb.
  void ShellExecute(const std::string& verb, const std::string& target, int show_command) override;

  // That of the big desktops, or one that stands alone, if it is installed.
  std::string SystemInformationTool() override;

  // The pages for Linux lie in a folder near the help file or the program.
  void WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) override;

  // Nothing: that takes a window system.
  void SendKeys(const std::string& /*keys*/) override {}

 private:
  HelpWindow help_;
};

}  // namespace quorvale
