#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

struct Process;
enum class RunMode;

// The program's entry point. `text` is the command line without the program's path; its first two characters select
// the mode. Returns once the mode has started (or is already over); the program runs while a form is loaded.
void Main(Process& process, const std::string& text);

// Whether the mode shows pictures in a window of the show's own, measured in device pixels.
bool ShowsPictures(RunMode mode);

// The window handle after the switch at the start of `text`, or 0. Callers write the 32 bits signed or unsigned. Fails
// with kOverflow for larger numbers.
std::int32_t SwitchHandle(const std::string& text);

}  // namespace quorvale
