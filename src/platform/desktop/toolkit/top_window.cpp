#include "platform/desktop/toolkit/top_window.h"

#include <xcb/xcb.h>

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <chrono>

#include "platform/common/deliver.h"
#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/key_codes.h"
#include "platform/desktop/toolkit/surface_window.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

// What a window manager takes to fit a full-screen window to another screen.
constexpr auto kManagersTurn = std::chrono::milliseconds(150);

QRect PrimaryMonitor() {
  const QScreen* const primary = QGuiApplication::primaryScreen();
  return primary != nullptr ? primary->geometry() : QRect();
}

Qt::WindowFlags FlagsOf(bool is_in_daemon) {
  if (is_in_daemon) return Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint;
  // Topmost from the start: on X11 Qt makes a window anew, with another handle and without its children,
  // when its flags change.
  Qt::WindowFlags flags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
  // Full screen is something that window managers give. Without one the window's size is all that is needed.
  if (X11Connection() != nullptr && !HasWindowManager(X11Connection())) flags |= Qt::X11BypassWindowManagerHint;
  return flags;
}

}  // namespace

TopWindow::TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events, WindowHandle daemon_window)
    : kind_(kind),
      pixels_(pixels),
      events_(events),
      daemon_window_(daemon_window),
      focus_watch_(*this, [this] { Deliver([this] { events_.OnDeactivated(); }); }),
      screen_watch_([this] { FollowScreen(); }),
      monitor_(PrimaryMonitor()) {
  setSurfaceType(QSurface::RasterSurface);
  setFlags(FlagsOf(daemon_window_ != 0));
  create();
  if (daemon_window_ == 0) {
    if (X11Connection() != nullptr) ShowOnAllDesktops(X11Connection(), static_cast<std::uint32_t>(winId()));
    return;
  }
  mouse_.SetEnabled(false);
  // Qt is told nothing of it: for a child of another program's window it would send that one messages.
  Reparent(X11Connection(), static_cast<std::uint32_t>(winId()), static_cast<std::uint32_t>(daemon_window_));
}

void TopWindow::SetBounds(const PixelRect& bounds) {
  const QRect rect = ToQtPixels(bounds, ToolkitPixelRatio(pixels_, devicePixelRatio()));
  place_ = rect.translated(PrimaryCorner());
  if (isVisible() && windowState() == Qt::WindowFullScreen) {
    QTimer::singleShot(kManagersTurn, this, [this] { FitFullScreen(); });
  } else {
    setGeometry(place_);
  }
}

// A window manager fits a full-screen window to its monitor, but leaves it there when another one is the primary one.
void TopWindow::FitFullScreen() {
  if (!isVisible() || Fits()) return;
  if (X11Connection() == nullptr) setScreen(QGuiApplication::primaryScreen());
  showNormal();
  setGeometry(place_);
  showFullScreen();
}

// The other window systems tell no window where it lies.
bool TopWindow::Fits() const {
  return X11Connection() != nullptr ? geometry() == place_ : screen() == QGuiApplication::primaryScreen();
}

void TopWindow::FollowScreen() {
  const QRect monitor = PrimaryMonitor();
  if (kind_ != WindowKind::kSaver || monitor.isEmpty() || monitor == monitor_) return;
  monitor_ = monitor;
  Deliver([this] { events_.OnScreenChanged(); });
}

// In the coordinates of what the window lies in.
QPoint TopWindow::PrimaryCorner() const {
  const QPoint corner = PrimaryMonitor().topLeft();
  int x = 0;
  int y = 0;
  if (daemon_window_ != 0) ReadWindowPlace(X11Connection(), static_cast<std::uint32_t>(daemon_window_), x, y);
  return corner - QPoint(x, y);
}

void TopWindow::Appear() {
  if (daemon_window_ != 0) {
    // Without the daemon's window this one would lie on the screen itself.
    if (WindowExists(X11Connection(), static_cast<std::uint32_t>(daemon_window_))) {
      show();
    } else {
      CloseSoon();
    }
    return;
  }
  mouse_.SetPointer(ToPosition(QCursor::pos()));
  if (kind_ == WindowKind::kSaver && !flags().testFlag(Qt::X11BypassWindowManagerHint)) {
    showFullScreen();
  } else {
    show();
  }
  Raise();
  requestActivate();
  if (kind_ == WindowKind::kSaver) focus_watch_.Start();
}

void TopWindow::Disappear() {
  focus_watch_.Stop();
  hide();
}

// The other window systems leave the order of windows to themselves, and Qt complains.
void TopWindow::Raise() {
  if (X11Connection() != nullptr && daemon_window_ == 0) raise();
}

void TopWindow::OfferFocus(SurfaceWindow& surface) {
  if (!focus_) focus_ = &surface;
}

void TopWindow::Focus(SurfaceWindow& surface) {
  focus_ = &surface;
  if (isVisible()) requestActivate();
}

void TopWindow::ReportKey(int qt_key) {
  if (!mouse_.IsEnabled()) return;
  if (focus_) {
    focus_->ReportKey(qt_key);
  } else {
    Deliver([&] { events_.OnKeyDown(VirtualKeyCode(qt_key)); });
  }
}

bool TopWindow::event(QEvent* event) {
  if (event->type() == QEvent::Close) {
    event->ignore();
    Deliver([this] { events_.OnCloseRequested(); });
    return true;
  }
  if (event->type() == QEvent::Enter) mouse_.SetPointer(ToPosition(static_cast<QEnterEvent*>(event)->globalPosition()));
  return QWindow::event(event);
}

void TopWindow::CloseSoon() {
  QTimer::singleShot(0, this, [this] { Deliver([this] { events_.OnCloseRequested(); }); });
}

bool TopWindow::nativeEvent(const QByteArray& kind, void* message, qintptr* /*result*/) {
  constexpr std::uint8_t kEventBits = 0x7F;
  if (kind != "xcb_generic_event_t") return false;
  switch (static_cast<const xcb_generic_event_t*>(message)->response_type & kEventBits) {
    case XCB_DESTROY_NOTIFY:
      // The daemon's window went and took this one along; Qt takes no notice of that.
      if (daemon_window_ != 0) CloseSoon();
      break;
    case XCB_FOCUS_OUT:
    case XCB_UNMAP_NOTIFY:
      focus_watch_.LookSoon();
      break;
    default:
      break;
  }
  return false;
}

void TopWindow::exposeEvent(QExposeEvent* /*event*/) {
  // A child may have been exposed before.
  for (SurfaceWindow* const surface : Surfaces()) surface->Present();
}

void TopWindow::paintEvent(QPaintEvent* /*event*/) {
  const QRegion free = Uncovered();
  if (free.isEmpty()) return;
  if (buffer_.size() != size()) buffer_.resize(size());
  buffer_.beginPaint(free);
  {
    QPainter painter(buffer_.paintDevice());
    for (const QRect& rect : free) painter.fillRect(rect, Qt::black);
  }
  buffer_.endPaint();
  buffer_.flush(free);
}

QList<SurfaceWindow*> TopWindow::Surfaces() const {
  return findChildren<SurfaceWindow*>(QString(), Qt::FindDirectChildrenOnly);
}

QRegion TopWindow::Uncovered() const {
  QRegion free(QRect(QPoint(), size()));
  // On Wayland a window without pixels of its own is not on the screen, nor is what it holds.
  if (QGuiApplication::platformName().startsWith("wayland")) return free;
  for (const SurfaceWindow* const surface : Surfaces()) {
    if (surface->isVisible()) free -= surface->geometry();
  }
  return free;
}

void TopWindow::keyPressEvent(QKeyEvent* event) { ReportKey(event->key()); }

void TopWindow::mousePressEvent(QMouseEvent* /*event*/) { mouse_.ReportDown(); }

void TopWindow::mouseMoveEvent(QMouseEvent* event) { mouse_.ReportMove(ToPosition(event->globalPosition())); }

}  // namespace quorvale
