#pragma once

#include <cstdint>
#include <string>

#include "system/window_system.h"

namespace quorvale {

inline constexpr int kWindowNormalFocus = 1;
inline constexpr int kWindowMinimisedFocus = 2;

// Commands of `WinHelp`: a topic by number, the contents, the index.
inline constexpr std::uint32_t kHelpContext = 1;
inline constexpr std::uint32_t kHelpContents = 3;
inline constexpr std::uint32_t kHelpPartialKey = 261;

// Starts other programs and opens documents and help.
class Programs {
 public:
  virtual ~Programs() = default;

  // Starts a command line and returns without waiting. Fails with kNotFound when there is no such program.
  virtual void Start(const std::string& command_line, int window_style) = 0;

  // Opens the system's display settings on their page for screen savers and returns without waiting.
  virtual void OpenDisplaySettings() = 0;

  // Opens a document or a web address with the user's default program. Fails with kNotFound if there is none.
  virtual void ShellExecute(const std::string& verb, const std::string& target, int show_command) = 0;

  // The command line of the desktop's system information tool. Empty if there is none or the registry names it.
  virtual std::string SystemInformationTool() { return {}; }

  // Opens the help: `file` is the help file's full path. Fails with kNotFound when there is nothing to show.
  virtual void WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) = 0;

  // Sends keystrokes to the focused window and returns at once.
  virtual void SendKeys(const std::string& keys) = 0;
};

}  // namespace quorvale
