#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

struct Process;

// The program's one entry. `text` is the command line without the program's own path; its first two
// characters choose the mode, which is then started. Returns when the mode is up or over; the program
// goes on as long as a form is loaded.
void Main(Process& process, const std::string& text);

// The window handle behind the switch that `text` begins with, or 0. A handle is 32 bits and its writer may count
// them with a sign or without. Fails with kOverflow for a number that has more.
std::int32_t SwitchHandle(const std::string& text);

// Whether no window has that title.
bool WindowAbsent(Process& process, const std::string& title);

}  // namespace quorvale
