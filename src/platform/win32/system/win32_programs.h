#pragma once

#include "system/programs.h"

namespace quorvale {

// The full path of a help file. The program names its own relative to the Windows directory, which need not be
// C:\WINDOWS.
std::string HelpFilePath(const std::string& file);

// The full path of the page for a help command. The pages are in the folder "help" beside the program, in the folder
// "Quorvale" beside the help file, or beside the help file. A topic without a page leads to the contents. Fails with
// kNotFound if there are no pages.
std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data);

class Win32Programs : public Programs {
 public:
  void Start(const std::string& command_line, int window_style) override;
  void OpenDisplaySettings() override;
  // Used if the registry has no entry for the tool: the one in the system directory.
  std::string SystemInformationTool() override;
  void ShellExecute(const std::string& verb, const std::string& target, int show_command) override;
  // Shows the page of `FindHelpPage` if there is no help file, as on every current Windows.
  void WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) override;
  void SendKeys(const std::string& keys) override;
};

}  // namespace quorvale
