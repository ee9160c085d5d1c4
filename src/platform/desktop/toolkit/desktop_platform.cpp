#include "platform/desktop/toolkit/desktop_platform.h"

#include <QColor>
#include <QColorDialog>
#include <QGuiApplication>
#include <QScreen>
#include <cmath>
#include <utility>

#include "platform/desktop/toolkit/message_boxes.h"
#include "platform/desktop/toolkit/message_hook_peer.h"
#include "platform/desktop/toolkit/surface_peer.h"
#include "platform/desktop/toolkit/timer_peer.h"
#include "platform/desktop/toolkit/window_peer.h"
#include "platform/desktop/widgets/dialog_peer.h"
#include "platform/desktop/widgets/surface_widget.h"
#include "toolkit/pixel_view.h"

namespace quorvale {
namespace {

// Two displays of one user are two desktops, each with a show of its own.
std::string DisplayId() {
  const QString name = QGuiApplication::platformName();
  const char* const variable = name.startsWith("wayland") ? "WAYLAND_DISPLAY" : name == "xcb" ? "DISPLAY" : nullptr;
  const QByteArray display = variable != nullptr ? qgetenv(variable) : QByteArray();
  return name.toStdString() + ' ' + display.toStdString();
}

constexpr double kUsualPixelsPerInch = 96;

double PixelsPerInch(const DesktopOptions& options) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  // The layout's pixels have the desktop's font in them.
  if (screen == nullptr || options.pixels == PixelKind::kLogical) return kUsualPixelsPerInch;
  return screen->logicalDotsPerInch() * ToolkitPixelRatio(options.pixels, screen->devicePixelRatio()) *
         options.text_scale;
}

QWidget* WidgetOf(WindowPeer& window) {
  auto* const dialog = dynamic_cast<DialogPeer*>(&window);
  return dialog != nullptr ? &dialog->Window() : nullptr;
}

Colour ToColour(const QColor& colour) {
  return static_cast<Colour>(colour.red() | colour.green() << 8 | colour.blue() << 16);
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
  if (kind == WindowKind::kDialog) return std::make_unique<DialogPeer>(events);
  return std::make_unique<QtWindowPeer>(kind, options_.pixels, events, titles_, options_.daemon_window);
}

std::unique_ptr<SurfacePeer> DesktopPlatform::CreateSurfacePeer(WindowPeer& window, Surface& surface,
                                                                SurfaceEvents& events) {
  if (auto* const dialog = dynamic_cast<DialogPeer*>(&window)) {
    return std::make_unique<SurfaceWidgetPeer>(dialog->Window(), surface, events);
  }
  return std::make_unique<SurfaceWindowPeer>(static_cast<QtWindowPeer&>(window).Window(), surface, events);
}

std::unique_ptr<TimerPeer> DesktopPlatform::CreateTimerPeer(std::function<void()> fired) {
  return std::make_unique<QtTimerPeer>(std::move(fired));
}

std::unique_ptr<MessageHookPeer> DesktopPlatform::CreateMessageHookPeer(std::function<void(int message)> arrived) {
  return std::make_unique<QtMessageHookPeer>(std::move(arrived));
}

void DesktopPlatform::PumpEvents() { wait_.RunPass(); }

std::unique_ptr<PacedRun> DesktopPlatform::OpenPacedRun(SurfacePeer& surface) {
  return std::make_unique<PresenterPacedRun>(static_cast<QtSurfacePeer&>(surface).Shown(), options_.pass_lengths, wait_,
                                             ended_loops_);
}

MessageBoxAnswer DesktopPlatform::ShowMessageBox(const MessageBox& box) {
  return ShowQtMessageBox(box, options_.application_title, ended_loops_);
}

void DesktopPlatform::RunModal(WindowPeer& window) {
  auto* const dialog = dynamic_cast<DialogPeer*>(&window);
  if (dialog == nullptr) return;
  bool has_ended = false;
  const EndedLoops::Loop loop(ended_loops_, [&has_ended] { return has_ended; });
  QObject context;
  QObject::connect(&dialog->Window(), &DialogWindow::Hidden, &context, [&has_ended] { has_ended = true; });
  dialog->Window().RunUntilHidden();
}

std::string DesktopPlatform::ShowFileDialog(WindowPeer& owner, const FileDialog& dialog) {
  return file_dialogs_.Choose(WidgetOf(owner), dialog);
}

Colour DesktopPlatform::ShowColourDialog(WindowPeer& owner, Colour start) {
  const QColor chosen = QColorDialog::getColor(QColor::fromRgb(ToPixel(start)), WidgetOf(owner));
  return chosen.isValid() ? ToColour(chosen) : start;
}

std::string DesktopPlatform::BrowseForFolder(WindowPeer& owner, const std::string& title) {
  return file_dialogs_.ChooseFolder(WidgetOf(owner), title);
}

}  // namespace quorvale
