#pragma once

#include <string>

namespace quorvale {

inline constexpr int kWindowNormalFocus = 1;
inline constexpr int kWindowMinimisedFocus = 2;

// Other programs.
class Programs {
 public:
  virtual ~Programs() = default;

  // Starts a command line and returns without waiting. Fails with kNotFound when there is no such program.
  virtual void Start(const std::string& command_line, int window_style) = 0;

  // Opens the system's display settings on their page for screen savers and returns without waiting.
  virtual void OpenDisplaySettings() = 0;

  // Sends keystrokes to the window that has the focus, without waiting.
  virtual void SendKeys(const std::string& keys) = 0;
};

}  // namespace quorvale
