#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/headless/services.h"
#include "system/window_system.h"
#include "toolkit/platform.h"
#include "toolkit/surface.h"

namespace quorvale {

// A window of a form, of a picture box, or of another program.
struct HeadlessWindow {
  WindowHandle parent = 0;  // 0 for a top-level window
  std::string title;
  PixelRect bounds;
  WindowKind kind = WindowKind::kDialog;
  bool visible = false;
  bool enabled = true;
  bool topmost = false;
  // The receiver of input. A window of another program has none.
  WindowEvents* events = nullptr;
  SurfaceEvents* surface_events = nullptr;
  Surface* surface = nullptr;
  // The surface will be presented at the end of the pass.
  bool invalidated = false;
};

// All windows of the desktop, and the mouse cursor.
class WindowTable : public WindowSystem {
 public:
  explicit WindowTable(CallLog& log) : log_(log) {}

  WindowHandle FindWindow(const std::string& title) override;
  WindowHandle GetForegroundWindow() override { return foreground_; }
  void EnableWindow(WindowHandle window, bool enabled) override;
  bool IsWindow(WindowHandle window) override { return windows_.contains(window); }
  void SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                    std::uint32_t flags) override;
  int ShowCursor(bool show) override { return cursor_count += show ? 1 : -1; }
  void ActivateWindow(const std::string& title) override;
  void ActivateWindow(WindowHandle window) override;
  void GetClientRect(WindowHandle window, ClientRect& rect) override;
  void SetParent(WindowHandle window, WindowHandle parent) override;

  // For tests and for the desktop's own windows.

  // Called when a form's window becomes visible, so that a test can send input at that moment.
  std::function<void(WindowHandle window)> shown;
  int cursor_count = 0;
  // The window that receives keys; 0 is none.
  WindowHandle focus = 0;

  // Another program's top-level window.
  WindowHandle CreateForeign(const std::string& title);
  WindowHandle Create(HeadlessWindow window);
  // Destroys its child windows too.
  void Destroy(WindowHandle window);
  void SetForeground(WindowHandle window) { foreground_ = window; }
  // Null if there is no such window.
  HeadlessWindow* Find(WindowHandle window);
  const std::map<WindowHandle, HeadlessWindow>& All() const { return windows_; }

 private:
  CallLog& log_;
  std::map<WindowHandle, HeadlessWindow> windows_;
  WindowHandle last_handle_ = 0x100;
  WindowHandle foreground_ = 0;
};

}  // namespace quorvale
