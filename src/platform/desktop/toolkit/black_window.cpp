#include "platform/desktop/toolkit/black_window.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {

BlackWindow::BlackWindow(QScreen& monitor, TopWindow& saver) : saver_(saver) {
  setSurfaceType(QSurface::RasterSurface);
  setScreen(&monitor);
  setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus);
  // A window manager would place it where it likes, or give it the focus.
  if (X11Connection() != nullptr) setFlag(Qt::X11BypassWindowManagerHint);
  setGeometry(monitor.geometry());
  if (X11Connection() != nullptr) {
    show();
  } else {
    showFullScreen();
  }
}

bool BlackWindow::event(QEvent* event) {
  if (event->type() == QEvent::Close) {
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::Enter) saver_.NotePointer(static_cast<QEnterEvent*>(event)->globalPosition());
  return QWindow::event(event);
}

void BlackWindow::paintEvent(QPaintEvent* /*event*/) {
  const QRect all(QPoint(), size());
  if (buffer_.size() != size()) buffer_.resize(size());
  buffer_.beginPaint(all);
  QPainter(buffer_.paintDevice()).fillRect(all, Qt::black);
  buffer_.endPaint();
  buffer_.flush(all);
}

void BlackWindow::mousePressEvent(QMouseEvent* /*event*/) { saver_.TakeMouseDown(); }

void BlackWindow::mouseMoveEvent(QMouseEvent* event) { saver_.TakeMouseMove(event->globalPosition()); }

}  // namespace quorvale
