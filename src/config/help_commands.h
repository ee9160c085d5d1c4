#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

class Form;
struct Process;

// Opens the help file above `owner` with a command of `Programs::WinHelp`, or says in a box why it can't.
void ShowHelp(Process& process, const Form& owner, const std::string& help_file, std::uint32_t command);

}  // namespace quorvale
