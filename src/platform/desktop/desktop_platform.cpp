#include "platform/desktop/desktop_platform.h"

#include <QColor>
#include <QColorDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <cmath>
#include <cstdio>
#include <set>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/message_boxes.h"
#include "platform/desktop/toolkit/surface_window.h"
#include "platform/desktop/toolkit/window_peer.h"
#include "platform/desktop/widgets/dialog_window.h"
#include "platform/desktop/widgets/surface_widget.h"
#include "toolkit/bitmap.h"
#include "toolkit/nonvisual_controls.h"

namespace quorvale {
namespace {

// Each display of a user is a desktop of its own, and can run a show of its own.
std::string DisplayId() {
  const QString name = QGuiApplication::platformName();
  const char* const variable = name.startsWith("wayland") ? "WAYLAND_DISPLAY" : name == "xcb" ? "DISPLAY" : nullptr;
  const QByteArray display = variable != nullptr ? qgetenv(variable) : QByteArray();
  return name.toStdString() + ' ' + display.toStdString();
}

constexpr double kUsualPixelsPerInch = 96;

double PixelsPerInch(const DesktopOptions& options) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  // Layout pixels already follow the desktop's font.
  if (screen == nullptr || options.pixels == PixelKind::kLogical) return kUsualPixelsPerInch;
  return screen->logicalDotsPerInch() * ToolkitPixelRatio(options.pixels, screen->devicePixelRatio()) *
         options.text_scale;
}

QWidget* WidgetOf(WindowPeer& window) {
  auto* const dialog = dynamic_cast<DialogPeer*>(&window);
  return dialog != nullptr ? &dialog->Window() : nullptr;
}

// Linux has no window messages. Reports WM_CLOSE when a picture box is asked to close, and WM_EXITMENULOOP when all
// menus of a dialog have closed.
class QtMessageHookPeer : public MessageHookPeer {
 public:
  explicit QtMessageHookPeer(std::function<void(int message)> arrived) : arrived_(std::move(arrived)) {}

  void Watch(WindowHandle window) override;
  void Report(int message) override { reported_.insert(message); }

 private:
  void Forward(int message);

  std::function<void(int message)> arrived_;
  std::set<int> reported_;
  // Disconnects from the window when the peer is destroyed.
  QObject connection_;
};

void QtMessageHookPeer::Watch(WindowHandle window) {
  connection_.disconnect();
  for (QWindow* const own : QGuiApplication::allWindows()) {
    auto* const box = qobject_cast<SurfaceWindow*>(own);
    if (box == nullptr || static_cast<WindowHandle>(box->winId()) != window) continue;
    QObject::connect(box, &SurfaceWindow::CloseArrived, &connection_, [this] { Forward(kWmClose); });
  }
  if (auto* const dialog = qobject_cast<DialogWindow*>(QWidget::find(static_cast<WId>(window)))) {
    QObject::connect(dialog, &DialogWindow::MenusClosed, &connection_, [this] { Forward(kWmExitMenuLoop); });
  }
}

void QtMessageHookPeer::Forward(int message) {
  if (reported_.contains(message)) Deliver([&] { arrived_(message); });
}

}  // namespace

DesktopPlatform::DesktopPlatform(DesktopOptions options)
    : options_(std::move(options)), titles_(DisplayId()), text_(PixelsPerInch(options_)) {}

ScreenInfo DesktopPlatform::Screen() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return {};
  const double ratio = ToolkitPixelRatio(options_.pixels, screen->devicePixelRatio());
  const QRect shown = ShownMonitor(options_.daemon_window);
  return {.width = static_cast<int>(std::lround(shown.width() * ratio)),
          .height = static_cast<int>(std::lround(shown.height() * ratio)),
          .scale = static_cast<float>(ToolkitScale(options_.pixels, screen->devicePixelRatio()))};
}

// A daemon opens a window on each monitor and starts a show in each.
std::vector<PixelRect> DesktopPlatform::FurtherMonitors() {
  if (options_.daemon_window.handle != 0) return {};
  return quorvale::FurtherMonitors(options_.pixels);
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

void DesktopPlatform::PumpEvents() { loop_.RunPass(); }

std::unique_ptr<PacedRun> DesktopPlatform::OpenPacedRun(SurfacePeer& surface) {
  return std::make_unique<PresenterPacedRun>(static_cast<QtSurfacePeer&>(surface).Shown(), options_.pass_lengths, loop_,
                                             ended_loops_);
}

MessageBoxAnswer DesktopPlatform::ShowMessageBox(const MessageBox& box) {
  if (!options_.has_display) {
    std::fprintf(stderr, "%s: %s\n", options_.application_title.c_str(), box.text.c_str());
    return MessageBoxAnswer::kNone;
  }
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
  const QColor chosen = QColorDialog::getColor(ToQtColour(start), WidgetOf(owner));
  return chosen.isValid() ? ToColour(chosen) : start;
}

std::string DesktopPlatform::BrowseForFolder(WindowPeer& owner, const std::string& title) {
  return file_dialogs_.ChooseFolder(WidgetOf(owner), title);
}

}  // namespace quorvale
