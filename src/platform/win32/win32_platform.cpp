#include "platform/win32/win32_platform.h"

#include <cmath>
#include <utility>

#include "platform/win32/toolkit/black_window.h"
#include "platform/win32/toolkit/message_peers.h"
#include "platform/win32/toolkit/surface_window.h"
#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

TopWindow& WindowOf(WindowPeer& peer) { return static_cast<Win32WindowPeer&>(peer).Window(); }

}  // namespace

Win32Platform::Win32Platform(Win32Options options, PictureLoader& pictures)
    : options_(std::move(options)),
      pictures_(pictures),
      text_(options_.pixels == PixelKind::kPhysical ? SystemDpi() : kUsualDpi) {}

ScreenInfo Win32Platform::Screen() {
  const float scale = ToolkitScale(options_.pixels, SystemDpi(), PrimaryMonitor());
  const auto toolkit_pixels = [scale](int metric) {
    return static_cast<int>(std::lround(static_cast<float>(GetSystemMetrics(metric)) / scale));
  };
  return {.width = toolkit_pixels(SM_CXSCREEN), .height = toolkit_pixels(SM_CYSCREEN), .scale = scale};
}

// A show's toolkit pixels are device pixels.
std::vector<PixelRect> Win32Platform::FurtherMonitors() { return FurtherMonitorsOf(AllMonitors()); }

std::unique_ptr<WindowPeer> Win32Platform::CreateWindowPeer(WindowKind kind, WindowEvents& events) {
  if (kind == WindowKind::kDialog) {
    return std::make_unique<Win32WindowPeer>(std::make_unique<DialogWindow>(options_.pixels, events));
  }
  return std::make_unique<Win32WindowPeer>(std::make_unique<TopWindow>(kind, options_.pixels, events));
}

std::unique_ptr<SurfacePeer> Win32Platform::CreateSurfacePeer(WindowPeer& window, Surface& surface,
                                                              SurfaceEvents& events) {
  return std::make_unique<Win32SurfacePeer>(WindowOf(window), surface, events);
}

std::unique_ptr<TimerPeer> Win32Platform::CreateTimerPeer(std::function<void()> fired) {
  return std::make_unique<Win32TimerPeer>(std::move(fired));
}

std::unique_ptr<MessageHookPeer> Win32Platform::CreateMessageHookPeer(std::function<void(int message)> arrived) {
  return std::make_unique<Win32MessageHookPeer>(std::move(arrived));
}

void Win32Platform::PumpEvents() { RunPass(); }

std::unique_ptr<PacedRun> Win32Platform::OpenPacedRun(SurfacePeer& surface) {
  return std::make_unique<PresenterPacedRun>(static_cast<Win32SurfacePeer&>(surface).Shown(), options_.pass_lengths,
                                             wait_, ended_loops_);
}

// Only dialogs are modal.
void Win32Platform::RunModal(WindowPeer& window) {
  auto& dialog = static_cast<DialogWindow&>(WindowOf(window));
  const EndedLoops::Loop loop(ended_loops_, [handle = dialog.Window()] { return IsWindowVisible(handle) == 0; });
  dialog.RunModal();
}

MessageBoxAnswer Win32Platform::ShowMessageBox(const MessageBox& box) {
  return ShowWin32MessageBox(box, options_.application_title, ended_loops_);
}

std::string Win32Platform::ShowFileDialog(WindowPeer& owner, const FileDialog& dialog) {
  return ShowWin32FileDialog(WindowOf(owner).Window(), dialog);
}

Colour Win32Platform::ShowColourDialog(WindowPeer& owner, Colour start) {
  return ShowWin32ColourDialog(WindowOf(owner).Window(), start, own_colours_);
}

std::string Win32Platform::BrowseForFolder(WindowPeer& owner, const std::string& title) {
  return BrowseWin32Folder(WindowOf(owner).Window(), title);
}

}  // namespace quorvale
