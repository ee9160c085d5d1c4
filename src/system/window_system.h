#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

// A window of this or another program; 0 is none.
using WindowHandle = std::uintptr_t;

// Converts a 32-bit window number from the command line; sign-extended.
inline WindowHandle ToWindowHandle(std::int32_t number) {
  return static_cast<WindowHandle>(static_cast<std::intptr_t>(number));
}

// `SetWindowPos`: stay above all windows, and leave position and size alone.
inline constexpr std::intptr_t kHwndTopmost = -1;
inline constexpr std::uint32_t kSwpNoSizeNoMove = 3;

// A client area in physical pixels.
struct ClientRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
};

// Windows other than the program's forms, and the mouse cursor. Calls with an invalid handle do nothing.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  // The top-level window with that title, of any program on the same display, or 0.
  virtual WindowHandle FindWindow(const std::string& title) = 0;

  virtual WindowHandle GetForegroundWindow() = 0;
  virtual void EnableWindow(WindowHandle window, bool enabled) = 0;
  virtual bool IsWindow(WindowHandle window) = 0;

  // Leaves `rect` unchanged if the handle is invalid.
  virtual void GetClientRect(WindowHandle window, ClientRect& rect) = 0;

  // Makes a window of this program a child of another, perhaps of another program; a parent of 0 makes
  // it a top-level window.
  virtual void SetParent(WindowHandle window, WindowHandle parent) = 0;

  virtual void SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                            std::uint32_t flags) = 0;

  // Calls nest: each adds 1 (show) or -1 (hide) to a count, which is returned. The cursor is hidden while the count is
  // negative.
  virtual int ShowCursor(bool show) = 0;

  // Brings the window with that title forward and gives it the focus. Fails with kNotFound.
  virtual void ActivateWindow(const std::string& title) = 0;
  // The same by handle.
  virtual void ActivateWindow(WindowHandle window) = 0;
};

}  // namespace quorvale
