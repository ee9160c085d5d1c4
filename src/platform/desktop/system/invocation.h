#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvale {

// How the program was called.
struct Invocation {
  // What the start is told: the arguments, or the switch that they stand for.
  std::string text;
  // The window of a screen saver daemon that the show has to run in; 0 when the daemon named none.
  std::optional<std::uint32_t> daemon_window;
};

// `--root` is the show in the window that the daemon named in its environment, `--window-id N`, decimal or
// with 0x in front, the preview in that window, whatever else is given. All other arguments make the text,
// joined by one blank. `daemon_window` is the value of XSCREENSAVER_WINDOW, or null.
Invocation ReadInvocation(const std::vector<std::string>& arguments, const char* daemon_window);

}  // namespace quorvale
