#pragma once

#include <cstdint>
#include <string>

#include "platform/desktop/system/files.h"
#include "system/programs.h"

namespace quorvale {

// The full path of the page for a help command. The folder of the pages is searched for beside `file`, which is the
// help file's path, and beside the program. A topic that has no page gives the contents. Fails with kNotFound if there
// are no pages.
std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data);

// The help's window. It belongs to a separate process, so that modal windows of this one don't block it.
class HelpWindow {
 public:
  // Shows the page in the open window, or opens one. Fails with kNotFound if the program is missing.
  void Show(const std::string& page);

 private:
  bool Ask(const std::string& page) const;

  FileDescriptor pages_;
};

class DesktopPrograms : public Programs {
 public:
  // Without a shell: see `SplitCommandLine`. `window_style` is ignored, since Linux can't pass it on.
  void Start(const std::string& command_line, int window_style) override;

  // XScreenSaver's settings; nothing if they are not installed.
  void OpenDisplaySettings() override;

  // `verb` is ignored.
  void ShellExecute(const std::string& verb, const std::string& target, int show_command) override;

  // That of a desktop, or another one that is installed.
  std::string SystemInformationTool() override;

  void WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) override;

  // Nothing: it needs a window system.
  void SendKeys(const std::string& /*keys*/) override {}

 private:
  HelpWindow help_;
};

}  // namespace quorvale
