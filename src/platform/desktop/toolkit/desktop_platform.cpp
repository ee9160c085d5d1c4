#include "platform/desktop/toolkit/desktop_platform.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>
#include <utility>

#include "platform/desktop/toolkit/message_boxes.h"
#include "platform/desktop/toolkit/message_hook_peer.h"
#include "platform/desktop/toolkit/paced_run.h"
#include "platform/desktop/toolkit/surface_peer.h"
#include "platform/desktop/toolkit/timer_peer.h"
#include "platform/desktop/toolkit/window_peer.h"

namespace quorvale {
namespace {

// Two displays of one user are two desktops, each with a show of its own.
std::string DisplayId() {
  const QString name = QGuiApplication::platformName();
  const char* const variable = name.startsWith("wayland") ? "WAYLAND_DISPLAY" : name == "xcb" ? "DISPLAY" : nullptr;
  const QByteArray display = variable != nullptr ? qgetenv(variable) : QByteArray();
  return name.toStdString() + ' ' + display.toStdString();
}

double PixelsPerInch(const DesktopOptions& options) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return 96;
  return screen->logicalDotsPerInch() * ToolkitPixelRatio(options.pixels, screen->devicePixelRatio()) *
         options.text_scale;
}

}  // namespace

DesktopPlatform::DesktopPlatform(DesktopOptions options)
    : options_(std::move(options)), titles_(DisplayId()), text_(PixelsPerInch(options_)) {}

ScreenInfo DesktopPlatform::Screen() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return {};
  const double ratio = ToolkitPixelRatio(options_.pixels, screen->devicePixelRatio());
  return {.width = static_cast<int>(std::lround(screen->geometry().width() * ratio)),
          .height = static_cast<int>(std::lround(screen->geometry().height() * ratio)),
          .scale = static_cast<float>(ToolkitScale(options_.pixels, screen->devicePixelRatio()))};
}

std::unique_ptr<WindowPeer> DesktopPlatform::CreateWindowPeer(WindowKind kind, WindowEvents& events) {
  return std::make_unique<QtWindowPeer>(kind, options_.pixels, events, titles_, options_.daemon_window);
}

std::unique_ptr<SurfacePeer> DesktopPlatform::CreateSurfacePeer(WindowPeer& window, Surface& surface,
                                                                SurfaceEvents& events) {
  return std::make_unique<QtSurfacePeer>(static_cast<QtWindowPeer&>(window).Window(), surface, events);
}

std::unique_ptr<TimerPeer> DesktopPlatform::CreateTimerPeer(std::function<void()> fired) {
  return std::make_unique<QtTimerPeer>(std::move(fired));
}

std::unique_ptr<MessageHookPeer> DesktopPlatform::CreateMessageHookPeer(std::function<void(int message)> arrived) {
  return std::make_unique<QtMessageHookPeer>(std::move(arrived));
}

void DesktopPlatform::PumpEvents() { RunPass(); }

std::unique_ptr<PacedRun> DesktopPlatform::OpenPacedRun(SurfacePeer& surface) {
  return std::make_unique<QtPacedRun>(static_cast<QtSurfacePeer&>(surface).Window(), options_.pass_lengths, wait_);
}

MessageBoxAnswer DesktopPlatform::ShowMessageBox(const MessageBox& box) {
  return ShowQtMessageBox(box, options_.application_title);
}

}  // namespace quorvale
