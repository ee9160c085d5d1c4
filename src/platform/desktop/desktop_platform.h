#pragma once

#include <string>
#include <vector>

#include "platform/common/pacing.h"
#include "platform/desktop/pictures/picture_loader.h"
#include "platform/desktop/system/file_locks.h"
#include "platform/desktop/toolkit/event_loop.h"
#include "platform/desktop/toolkit/monitors.h"
#include "platform/desktop/toolkit/pixels.h"
#include "platform/desktop/toolkit/text_painter.h"
#include "platform/desktop/toolkit/window_system.h"
#include "platform/desktop/widgets/file_dialogs.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/platform.h"

namespace quorvale {

struct DesktopOptions {
  std::string application_title;
  PixelKind pixels = PixelKind::kPhysical;
  // The user's scale factor for text where Qt's own scaling is off.
  double text_scale = 1;
  PassLengths pass_lengths;
  // Without a display, message boxes are written to the terminal, since nobody could close them.
  bool has_display = true;
  DaemonWindow daemon_window = {};
};

// The Linux desktop, by Qt. Needs a QApplication that outlives it.
class DesktopPlatform : public Platform {
 public:
  explicit DesktopPlatform(DesktopOptions options);

  ScreenInfo Screen() override;
  std::vector<PixelRect> FurtherMonitors() override;
  std::unique_ptr<WindowPeer> CreateWindowPeer(WindowKind kind, WindowEvents& events) override;
  std::unique_ptr<SurfacePeer> CreateSurfacePeer(WindowPeer& window, Surface& surface, SurfaceEvents& events) override;
  std::unique_ptr<TimerPeer> CreateTimerPeer(std::function<void()> fired) override;
  std::unique_ptr<MessageHookPeer> CreateMessageHookPeer(std::function<void(int message)> arrived) override;
  DesktopPictureLoader& Pictures() override { return pictures_; }
  TextPainter& Text() override { return text_; }
  void PumpEvents() override;
  std::unique_ptr<PacedRun> OpenPacedRun(SurfacePeer& surface) override;
  WidgetFactory& Widgets() override { return widgets_; }
  void RunModal(WindowPeer& window) override;
  MessageBoxAnswer ShowMessageBox(const MessageBox& box) override;
  std::string ShowFileDialog(WindowPeer& owner, const FileDialog& dialog) override;
  Colour ShowColourDialog(WindowPeer& owner, Colour start) override;
  std::string BrowseForFolder(WindowPeer& owner, const std::string& title) override;

  WindowSystem& Windows() { return windows_; }

 private:
  DesktopOptions options_;
  TitleLock titles_;
  QtWindowSystem windows_{titles_, options_.daemon_window.handle != 0};
  DesktopPictureLoader pictures_;
  QtTextPainter text_;
  EventLoop loop_;
  EndedLoops ended_loops_;
  QtWidgets widgets_;
  FileDialogs file_dialogs_;
};

}  // namespace quorvale
