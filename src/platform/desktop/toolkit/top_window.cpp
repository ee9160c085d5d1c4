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
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/surface_peer.h"
#include "platform/desktop/toolkit/surface_window.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

// The time that a window manager needs to fit a full-screen window to another screen.
constexpr auto kManagersTurn = std::chrono::milliseconds(150);

Qt::WindowFlags FlagsOf(WindowKind kind, bool is_in_daemon) {
  if (kind == WindowKind::kMonitor) return MonitorWindowFlags();
  if (is_in_daemon) return Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint;
  // Topmost from the start: when flags change on X11, Qt makes a new window with another handle and without the
  // children.
  Qt::WindowFlags flags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
  // Only a window manager makes a window full screen. Without one its size is enough.
  if (X11Connection() != nullptr && !HasWindowManager(X11Connection())) flags |= Qt::X11BypassWindowManagerHint;
  return flags;
}

}  // namespace

// A window manager would place it where it likes, or give it the focus.
Qt::WindowFlags MonitorWindowFlags() {
  const Qt::WindowFlags flags =
      Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
  return X11Connection() != nullptr ? flags | Qt::X11BypassWindowManagerHint : flags;
}

TopWindow::TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events, const DaemonWindow& daemon)
    : kind_(kind),
      pixels_(pixels),
      events_(events),
      daemon_(daemon),
      focus_watch_(*this, [this] { Deliver([this] { events_.OnDeactivated(); }); }),
      monitor_(ShownMonitor(daemon)) {
  setSurfaceType(QSurface::RasterSurface);
  setFlags(FlagsOf(kind, daemon.handle != 0));
  create();
  WatchMonitors();
  if (daemon_.handle == 0) {
    if (X11Connection() != nullptr) ShowOnAllDesktops(X11Connection(), static_cast<std::uint32_t>(winId()));
    return;
  }
  mouse_.SetEnabled(false);
  // By the server and not by Qt, which would send messages to another program's window that it takes for a parent.
  Reparent(X11Connection(), static_cast<std::uint32_t>(winId()), static_cast<std::uint32_t>(daemon_.handle));
}

void TopWindow::SetBounds(const PixelRect& bounds) {
  if (kind_ == WindowKind::kMonitor) {
    if (QScreen* const monitor = MonitorAt(bounds, pixels_)) place_ = monitor->geometry();
    if (isVisible()) CoverMonitor();
    return;
  }
  const QRect rect = ToQtPixels(bounds, ToolkitPixelRatio(pixels_, devicePixelRatio()));
  place_ = rect.translated(ShownCorner());
  if (isVisible() && windowState() == Qt::WindowFullScreen) {
    QTimer::singleShot(kManagersTurn, this, [this] { FitFullScreen(); });
  } else {
    setGeometry(place_);
  }
}

void TopWindow::CoverMonitor() {
  if (X11Connection() != nullptr) {
    setGeometry(place_);
    show();
    raise();
    return;
  }
  for (QScreen* const monitor : QGuiApplication::screens()) {
    if (monitor->geometry() != place_ || monitor == screen()) continue;
    // A full-screen window on Wayland stays on the monitor where it appeared.
    hide();
    setScreen(monitor);
  }
  setGeometry(place_);
  showFullScreen();
}

// A window manager fits a full-screen window to its monitor, but does not move it when another becomes the primary one.
void TopWindow::FitFullScreen() {
  if (!isVisible() || Fits()) return;
  if (X11Connection() == nullptr) setScreen(QGuiApplication::primaryScreen());
  showNormal();
  setGeometry(place_);
  showFullScreen();
}

// On other window systems a window does not know its place.
bool TopWindow::Fits() const {
  return X11Connection() != nullptr ? geometry() == place_ : screen() == QGuiApplication::primaryScreen();
}

void TopWindow::WatchMonitors() {
  const auto watch = [this](QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, [this] { FollowMonitorsSoon(); });
  };
  for (QScreen* const screen : QGuiApplication::screens()) watch(screen);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, watch](QScreen* screen) {
    watch(screen);
    FollowMonitorsSoon();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { FollowMonitorsSoon(); });
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { FollowMonitorsSoon(); });
}

// One change of the layout comes as several signals; it is followed once, when all have come.
void TopWindow::FollowMonitorsSoon() {
  if (std::exchange(follow_is_posted_, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { FollowMonitors(); }, Qt::QueuedConnection);
}

void TopWindow::FollowMonitors() {
  follow_is_posted_ = false;
  Q_EMIT MonitorsChanged();
  const QRect monitor = ShownMonitor(daemon_);
  if (!IsSaver(kind_) || monitor.isEmpty()) return;
  if (kind_ != WindowKind::kSharedSaver && monitor == monitor_) return;
  monitor_ = monitor;
  Deliver([this] { events_.OnScreenChanged(); });
}

// In the coordinates of the window's parent.
QPoint TopWindow::ShownCorner() const {
  const QPoint corner = ShownMonitor(daemon_).topLeft();
  int x = 0;
  int y = 0;
  if (daemon_.handle != 0) ReadWindowPlace(X11Connection(), static_cast<std::uint32_t>(daemon_.handle), x, y);
  return corner - QPoint(x, y);
}

void TopWindow::Appear() {
  if (daemon_.handle != 0) {
    // If the daemon's window is gone, this one would appear on the screen itself.
    if (WindowExists(X11Connection(), static_cast<std::uint32_t>(daemon_.handle))) {
      show();
    } else {
      CloseSoon();
    }
    return;
  }
  mouse_.SetPointer(ToPosition(QCursor::pos()));
  if (kind_ == WindowKind::kMonitor) {
    CoverMonitor();
    return;
  }
  if (IsSaver(kind_) && !flags().testFlag(Qt::X11BypassWindowManagerHint)) {
    showFullScreen();
  } else {
    show();
  }
  Raise();
  requestActivate();
  if (IsSaver(kind_)) focus_watch_.Start();
}

void TopWindow::Disappear() {
  focus_watch_.Stop();
  hide();
}

// Other window systems order their windows themselves, and Qt would print a warning.
void TopWindow::Raise() {
  if (X11Connection() != nullptr && daemon_.handle == 0) raise();
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
      // The daemon's window is gone, and with it this one. Qt does not notice.
      if (daemon_.handle != 0) CloseSoon();
      break;
    case XCB_FOCUS_OUT:
    case XCB_UNMAP_NOTIFY:
      focus_watch_.CheckSoon();
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
  // On Wayland a window without pixels of its own is not shown, nor are its children.
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
