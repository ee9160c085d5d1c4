#pragma once

#include <QBackingStore>
#include <QPointF>
#include <QPointer>
#include <QWindow>

#include "platform/common/mouse_input.h"
#include "platform/desktop/toolkit/focus_watch.h"
#include "platform/desktop/toolkit/monitors.h"
#include "platform/desktop/toolkit/pixels.h"
#include "system/window_system.h"
#include "toolkit/platform.h"

class QScreen;

namespace quorvale {

class SurfaceWindow;

inline MouseInput::Position ToPosition(const QPointF& point) { return {point.x(), point.y()}; }

// The flags of a window that covers a monitor beside the primary one and leaves the focus where it is.
Qt::WindowFlags MonitorWindowFlags();

// The window of a show's form. It gets the keys for the whole form and passes them to the picture box that has the
// focus. What its picture boxes leave free is black.
class TopWindow : public QWindow {
  Q_OBJECT

 public:
  // In the window of a `daemon`, which belongs to another program, the window is a child of that one and takes no
  // input. If that one goes, this one asks to be closed.
  TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events, const DaemonWindow& daemon = {});

  PixelKind Pixels() const { return pixels_; }

  // In toolkit pixels, from the corner of the primary monitor.
  void SetBounds(const PixelRect& bounds);
  void Appear();
  void Disappear();
  void Raise();

  // A show keeps the keyboard while it is on the screen, except while one of this program's boxes is open.
  void HoldKeyboard(bool hold) { focus_watch_.SetPaused(!hold); }

  // A disabled window takes no input.
  void SetInputEnabled(bool enabled) { mouse_.SetEnabled(enabled); }

  // Gives the focus to the form's first picture box, until another asks for it by `Focus`.
  void OfferFocus(SurfaceWindow& surface);
  void Focus(SurfaceWindow& surface);

  // For its picture boxes and for the windows on other monitors.
  void ReportKey(int qt_key);
  MouseInput& Mouse() { return mouse_; }

 Q_SIGNALS:
  // Monitors have come or gone, or changed in size or place.
  void MonitorsChanged();

 protected:
  bool event(QEvent* event) override;
  bool nativeEvent(const QByteArray& kind, void* message, qintptr* result) override;
  void exposeEvent(QExposeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QList<SurfaceWindow*> Surfaces() const;
  QRegion Uncovered() const;
  QPoint ShownCorner() const;
  void CloseSoon();
  void WatchMonitors();
  void FollowMonitorsSoon();
  void FollowMonitors();
  void FitFullScreen();
  void CoverMonitor();
  bool Fits() const;

  WindowKind kind_;
  PixelKind pixels_;
  WindowEvents& events_;
  MouseInput mouse_{events_};
  DaemonWindow daemon_;
  QBackingStore buffer_{this};
  QPointer<SurfaceWindow> focus_;
  FocusWatch focus_watch_;
  bool follow_is_posted_ = false;
  // Where the window belongs.
  QRect place_;
  // The monitor that the show is on, as the form knows it.
  QRect monitor_;
};

}  // namespace quorvale
