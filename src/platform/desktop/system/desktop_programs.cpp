#include "platform/desktop/system/desktop_programs.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "platform/common/help_pages.h"
#include "platform/desktop/system/start_program.h"

namespace quorvale {
namespace {

std::filesystem::path ProgramFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

bool IsFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

}  // namespace

std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data) {
  // Both end in a separator.
  const std::string beside = std::filesystem::path(file).parent_path() / "";
  const std::string program = ProgramFolder() / "";
  return FindHelpPage({beside, beside + "help/", program + "help/", program + "../share/quorvale/help/"}, IsFile,
                      command, data);
}

void HelpWindow::Show(const std::string& page) {
  if (pages_.IsOpen() && Ask(page)) return;
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw Failure(FailureNumber::kInternal, std::generic_category().message(errno), "HelpWindow");
  }
  const FileDescriptor its_end(ends[0]);
  pages_ = FileDescriptor(ends[1]);
  StartProgram({(ProgramFolder() / "quorvale-help").string()}, its_end.Get());
  Ask(page);
}

// False if the window has been closed.
bool HelpWindow::Ask(const std::string& page) const {
  const std::string line = page + '\n';
  return send(pages_.Get(), line.data(), line.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(line.size());
}

void DesktopPrograms::Start(const std::string& command_line, int /*window_style*/) {
  const std::vector<std::string> pieces = SplitCommandLine(command_line);
  if (pieces.empty()) throw Failure(FailureNumber::kNotFound, "No program to start", "DesktopPrograms");
  StartProgram(pieces);
}

void DesktopPrograms::OpenDisplaySettings() {
  try {
    Start("xscreensaver-settings", kWindowNormalFocus);
  } catch (const Failure&) {
    // There is no other program that all desktops have.
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
