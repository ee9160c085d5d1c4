#pragma once

#include <string>

namespace quorvale {

struct Process;

// The program's one entry. `text` is the command line without the program's own path; its first two
// characters choose the mode, which is then started. Returns when the mode is up or over; the program
// goes on as long as a form is loaded.
void Main(Process& process, const std::string& text);

// Whether no window has that title.
bool WindowAbsent(Process& process, const std::string& title);

}  // namespace quorvale
