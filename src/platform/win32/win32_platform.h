#pragma once

#include <string>
#include <vector>

#include "platform/common/pacing.h"
#include "platform/win32/system/win32_window_system.h"
#include "platform/win32/toolkit/event_loop.h"
#include "platform/win32/toolkit/resolution.h"
#include "platform/win32/toolkit/text_painter.h"
#include "platform/win32/widgets/system_dialogs.h"
#include "platform/win32/widgets/widget_factory.h"
#include "toolkit/platform.h"

namespace quorvale {

struct Win32Options {
  std::string application_title;
  PixelKind pixels = PixelKind::kPhysical;
  PassLengths pass_lengths;
};

// The Windows desktop, by Win32 calls only.
class Win32Platform : public Platform {
 public:
  // `pictures` outlives it.
  Win32Platform(Win32Options options, PictureLoader& pictures);

  ScreenInfo Screen() override;
  std::vector<PixelRect> FurtherMonitors() override;
  std::unique_ptr<WindowPeer> CreateWindowPeer(WindowKind kind, WindowEvents& events) override;
  std::unique_ptr<SurfacePeer> CreateSurfacePeer(WindowPeer& window, Surface& surface, SurfaceEvents& events) override;
  std::unique_ptr<TimerPeer> CreateTimerPeer(std::function<void()> fired) override;
  std::unique_ptr<MessageHookPeer> CreateMessageHookPeer(std::function<void(int message)> arrived) override;
  PictureLoader& Pictures() override { return pictures_; }
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
  Win32Options options_;
  Win32WindowSystem windows_;
  PictureLoader& pictures_;
  GdiTextPainter text_;
  EventWait wait_;
  EndedLoops ended_loops_;
  Win32WidgetFactory widgets_;
  // As long as the program runs.
  OwnColours own_colours_ = EmptyOwnColours();
};

}  // namespace quorvale
