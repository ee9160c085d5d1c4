#include "config/help_commands.h"

#include <exception>

#include "process/process.h"
#include "system/programs.h"
#include "toolkit/form.h"

namespace quorvale {

void ShowHelp(Process& process, const Form& owner, const std::string& help_file, std::uint32_t command) {
  if (help_file.empty()) {
    process.app.ShowMessageBox(
        {.text = "Unable to display Help Contents. There is no Help associated with this project.",
         .title = owner.Caption(),
         .icon = MessageBoxIcon::kInformation});
    return;
  }
  try {
    // An empty search key; 0 for commands without one.
    const std::uint32_t zero = 0;
    process.system.programs.WinHelp(owner.Hwnd(), help_file, command, reinterpret_cast<std::uintptr_t>(&zero));
  } catch (const std::exception& failure) {
    process.app.ShowMessageBox({.text = failure.what()});
  }
}

}  // namespace quorvale
