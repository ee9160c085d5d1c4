#pragma once

#include "platform/desktop/system/title_lock.h"
#include "platform/desktop/toolkit/cursor_count.h"
#include "system/window_system.h"

namespace quorvale {

// Windows as Qt knows them, and on X11 those of other programs.
class QtWindowSystem : public WindowSystem {
 public:
  // `titles` outlives it. A run that `ignores_others` finds no title but its own: one that a daemon started
  // may come before the last one has gone.
  QtWindowSystem(const TitleLock& titles, bool ignores_others) : titles_(titles), ignores_others_(ignores_others) {}

  // A title that another run has claimed gives a handle that names no window here.
  WindowHandle FindWindow(const std::string& title) override;
  WindowHandle GetForegroundWindow() override;
  // Windows of other programs can't be disabled on Linux.
  void EnableWindow(WindowHandle window, bool enabled) override;
  bool IsWindow(WindowHandle window) override;
  void SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                    std::uint32_t flags) override;
  void GetClientRect(WindowHandle window, ClientRect& rect) override;
  // Moves a picture box's window; the form's own window is where it came from.
  void SetParent(WindowHandle window, WindowHandle parent) override;
  int ShowCursor(bool show) override { return cursor_.Show(show); }
  void ActivateWindow(const std::string& title) override;
  void ActivateWindow(WindowHandle window) override;

 private:
  const TitleLock& titles_;
  bool ignores_others_;
  CursorCount cursor_;
};

}  // namespace quorvale
