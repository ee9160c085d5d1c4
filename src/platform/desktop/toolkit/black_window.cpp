#include "platform/desktop/toolkit/black_window.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <vector>

#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

PixelRect ToRect(const QRect& rect) { return {rect.x(), rect.y(), rect.width(), rect.height()}; }

// Qt's list begins with the primary one.
std::vector<PixelRect> Monitors() {
  std::vector<PixelRect> monitors;
  for (const QScreen* const monitor : QGuiApplication::screens()) monitors.push_back(ToRect(monitor->geometry()));
  return monitors;
}

}  // namespace

QtBlackWindow::QtBlackWindow(TopWindow& saver) : saver_(saver) {
  setSurfaceType(QSurface::RasterSurface);
  setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus);
  // A window manager would place it where it likes, or give it the focus.
  if (X11Connection() != nullptr) setFlag(Qt::X11BypassWindowManagerHint);
}

void QtBlackWindow::Cover(const PixelRect& monitor) {
  for (QScreen* const candidate : QGuiApplication::screens()) {
    if (ToRect(candidate->geometry()) == monitor && screen() != candidate) {
      // A full-screen window of Wayland stays on the monitor where it came on the screen.
      hide();
      setScreen(candidate);
    }
  }
  setGeometry(monitor.left, monitor.top, monitor.width, monitor.height);
  if (X11Connection() != nullptr) {
    show();
  } else {
    showFullScreen();
  }
}

bool QtBlackWindow::event(QEvent* event) {
  if (event->type() == QEvent::Close) {
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::Enter) {
    saver_.Mouse().SetPointer(ToPosition(static_cast<QEnterEvent*>(event)->globalPosition()));
  }
  return QWindow::event(event);
}

void QtBlackWindow::paintEvent(QPaintEvent* /*event*/) {
  const QRect all(QPoint(), size());
  if (buffer_.size() != size()) buffer_.resize(size());
  buffer_.beginPaint(all);
  QPainter(buffer_.paintDevice()).fillRect(all, Qt::black);
  buffer_.endPaint();
  buffer_.flush(all);
}

void QtBlackWindow::keyPressEvent(QKeyEvent* event) { saver_.ReportKey(event->key()); }

void QtBlackWindow::mousePressEvent(QMouseEvent* /*event*/) { saver_.Mouse().ReportDown(); }

void QtBlackWindow::mouseMoveEvent(QMouseEvent* event) {
  saver_.Mouse().ReportMove(ToPosition(event->globalPosition()));
}

std::unique_ptr<BlackWindows> CoverOtherMonitors(TopWindow& saver) {
  return std::make_unique<BlackWindows>(Monitors, [&saver] { return std::make_unique<QtBlackWindow>(saver); });
}

}  // namespace quorvale
