#pragma once

#include <string>

#include "platform/desktop/system/desktop_programs.h"
#include "platform/desktop/system/file_locks.h"
#include "system/window_system.h"

namespace quorvale {

// The display count of the mouse cursor. Below 0 the cursor is hidden over this program's windows.
class CursorCount {
 public:
  CursorCount() = default;
  ~CursorCount() { SetHidden(false); }
  CursorCount(const CursorCount&) = delete;
  CursorCount& operator=(const CursorCount&) = delete;

  // Returns the count after the change.
  int Show(bool show);

 private:
  void SetHidden(bool hidden);

  int count_ = 0;
  bool hidden_ = false;
};

// The windows of this program, by Qt, and on X11 those of other programs.
class QtWindowSystem : public WindowSystem {
 public:
  // `titles` outlives it. With `ignores_others` only this run's own titles are found: a daemon may start a run before
  // the last one has ended.
  QtWindowSystem(const TitleLock& titles, bool ignores_others) : titles_(titles), ignores_others_(ignores_others) {}

  // For a title that another run has claimed the handle names no window of this process.
  WindowHandle FindWindow(const std::string& title) override;
  WindowHandle GetForegroundWindow() override;
  // Does nothing for windows of other programs.
  void EnableWindow(WindowHandle window, bool enabled) override;
  bool IsWindow(WindowHandle window) override;
  void SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                    std::uint32_t flags) override;
  void GetClientRect(WindowHandle window, ClientRect& rect) override;
  // Moves a picture box's window into another program's, or back into its form's.
  void SetParent(WindowHandle window, WindowHandle parent) override;
  int ShowCursor(bool show) override { return cursor_.Show(show); }
  void ActivateWindow(const std::string& title) override;
  void ActivateWindow(WindowHandle window) override;

 private:
  const TitleLock& titles_;
  bool ignores_others_;
  CursorCount cursor_;
};

class QtPrograms : public DesktopPrograms {
 public:
  // "{F1}" goes to the window of this program that has the focus. Keys for other programs are dropped: desktops have
  // no page for savers to which they could lead, and on Wayland no program may type into another.
  void SendKeys(const std::string& keys) override;
};

}  // namespace quorvale
