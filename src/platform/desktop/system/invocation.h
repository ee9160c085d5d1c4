#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvale {

// The command line, with XScreenSaver's arguments translated to this program's own.
struct Invocation {
  // The text for `Main`.
  std::string text;
  // The window of a screen saver daemon in which the show has to run; 0 if the daemon named none.
  std::optional<std::uint32_t> daemon_window;
  // It begins with a minus but is no switch that the program knows, so nothing would run.
  bool is_unknown = false;
};

// `--root` means the show in the window that the daemon's environment names. `--window-id N` (decimal, or hexadecimal
// with 0x) means the preview in that window and overrides all else. Other arguments are joined by blanks.
// `daemon_window` is the value of XSCREENSAVER_WINDOW, or null.
Invocation ReadInvocation(const std::vector<std::string>& arguments, const char* daemon_window);

}  // namespace quorvale
