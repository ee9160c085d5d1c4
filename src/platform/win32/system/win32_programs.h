#pragma once

#include "system/programs.h"

namespace quorvale {

class Win32Programs : public Programs {
 public:
  void Start(const std::string& command_line, int window_style) override;
  void OpenDisplaySettings() override;
  // A system without a registry entry for its tool has it in the system directory.
  std::string SystemInformationTool() override;
  void ShellExecute(const std::string& verb, const std::string& target, int show_command) override;
  // Shows the page of `FindHelpPage` where there is no help file, as on every Windows of today.
  void WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) override;
  void SendKeys(const std::string& keys) override;
};

}  // namespace quorvale
