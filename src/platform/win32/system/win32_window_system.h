#pragma once

#include "system/window_system.h"

namespace quorvale {

// Each method is the Windows call of the same name.
class Win32WindowSystem : public WindowSystem {
 public:
  WindowHandle FindWindow(const std::string& title) override;
  WindowHandle GetForegroundWindow() override;
  void EnableWindow(WindowHandle window, bool enabled) override;
  bool IsWindow(WindowHandle window) override;
  void GetClientRect(WindowHandle window, ClientRect& rect) override;
  void SetParent(WindowHandle window, WindowHandle parent) override;
  void SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                    std::uint32_t flags) override;
  int ShowCursor(bool show) override;
  void ActivateWindow(const std::string& title) override;
  void ActivateWindow(WindowHandle window) override;
};

}  // namespace quorvale
