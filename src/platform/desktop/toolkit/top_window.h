#pragma once

#include <QBackingStore>
#include <QPointF>
#include <QPointer>
#include <QWindow>

#include "platform/common/mouse_input.h"
#include "platform/desktop/toolkit/focus_watch.h"
#include "platform/desktop/toolkit/pixel_kind.h"
#include "platform/desktop/toolkit/screen_watch.h"
#include "system/window_system.h"
#include "toolkit/platform.h"

namespace quorvale {

class SurfaceWindow;

inline MouseInput::Position ToPosition(const QPointF& point) { return {point.x(), point.y()}; }

// The window of a show's form. It takes the keys for all of its form and hands them to the picture box that has the
// focus; what its picture boxes leave free is black.
class TopWindow : public QWindow {
  Q_OBJECT

 public:
  // With a `daemon_window`, which is another program's, the window is a child of that one and takes no input;
  // when that one goes, this one asks to be closed.
  TopWindow(WindowKind kind, PixelKind pixels, WindowEvents& events, WindowHandle daemon_window = 0);

  PixelKind Pixels() const { return pixels_; }

  // In the toolkit's pixels, from the corner of the primary monitor.
  void SetBounds(const PixelRect& bounds);
  void Appear();
  void Disappear();
  void Raise();

  // A show keeps the keyboard while it is on the screen, unless one of our own boxes needs it.
  void HoldKeyboard(bool hold) { focus_watch_.SetPaused(!hold); }

  // A disabled window takes no input.
  void SetInputEnabled(bool enabled) { mouse_.SetEnabled(enabled); }

  // The first picture box of a form has the focus until another takes it.
  void OfferFocus(SurfaceWindow& surface);
  void Focus(SurfaceWindow& surface);

  // For its picture boxes, and for windows that stand for this one.
  void ReportKey(int qt_key);
  MouseInput& Mouse() { return mouse_; }

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
  QPoint PrimaryCorner() const;
  void CloseSoon();
  void FollowScreen();
  void FitFullScreen();
  bool Fits() const;

  WindowKind kind_;
  PixelKind pixels_;
  WindowEvents& events_;
  MouseInput mouse_{events_};
  WindowHandle daemon_window_;
  QBackingStore buffer_{this};
  QPointer<SurfaceWindow> focus_;
  FocusWatch focus_watch_;
  ScreenWatch screen_watch_;
  // Where the window belongs, and the primary monitor when that was last told.
  QRect place_;
  QRect monitor_;
};

}  // namespace quorvale
