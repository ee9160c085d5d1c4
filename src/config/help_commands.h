#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

class Form;
struct Process;

// Opens the help file with a command of `Programs::WinHelp`. Reports a failure in a box.
void ShowHelp(Process& process, const Form& owner, const std::string& help_file, std::uint32_t command);

}  // namespace quorvale
