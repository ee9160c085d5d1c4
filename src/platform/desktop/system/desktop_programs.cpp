#include "platform/desktop/system/desktop_programs.h"

#include <vector>

#include "base/failure.h"
#include "platform/desktop/system/command_line.h"
#include "platform/desktop/system/start_program.h"

namespace quorvale {
void DesktopPrograms::Start(const std::string& command_line, int /*window_style*/) {
  const std::vector<std::string> pieces = SplitCommandLine(command_line);
  if (pieces.empty()) throw Failure(FailureNumber::kNotFound, "No program to start", "DesktopPrograms");
  StartProgram(pieces);
}

void DesktopPrograms::OpenDisplaySettings() {
  try {
    Start("xscreensaver-settings", kWindowNormalFocus);
  } catch (const Failure&) {
    // Other desktops have settings of their own, and none that is the same on all of them.
  }
}

void DesktopPrograms::ShellExecute(const std::string& /*verb*/, const std::string& target, int /*show_command*/) {
  StartProgram({"xdg-open", target});
}

std::string DesktopPrograms::SystemInformationTool() {
  for (const char* const line : {"kinfocenter", "gnome-control-center info-overview", "cinnamon-settings info",
                                 "mate-system-monitor --show-system-tab", "hardinfo2", "hardinfo"}) {
    if (IsInstalled(SplitCommandLine(line).front())) return line;
  }
  return {};
}

void DesktopPrograms::WinHelp(WindowHandle /*owner*/, const std::string& file, std::uint32_t command,
                              std::uintptr_t data) {
  help_.Show(FindHelpPage(file, command, data));
}

}  // namespace quorvale
