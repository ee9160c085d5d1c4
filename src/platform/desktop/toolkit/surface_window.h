#pragma once

#include <QBackingStore>
#include <QElapsedTimer>
#include <QRegion>
#include <QWindow>
#include <memory>
#include <vector>

#include "platform/desktop/system/shared_pixels.h"
#include "platform/desktop/toolkit/join_bands.h"
#include "platform/desktop/toolkit/surface_peer.h"
#include "platform/desktop/toolkit/top_window.h"
#include "toolkit/surface.h"

namespace quorvale {

// A picture box's window in a show. It is a native window, so that it can become a child of any other. On X11 the
// server reads what has changed from the surface itself; elsewhere it is copied to a buffer of this window first. A
// widget would take twice as long for the thin shapes of the effects.
class SurfaceWindow : public QWindow, public Presenter {
  Q_OBJECT

 public:
  // `surface` and `events` outlive the window.
  SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events);
  ~SurfaceWindow() override;
  SurfaceWindow(const SurfaceWindow&) = delete;
  SurfaceWindow& operator=(const SurfaceWindow&) = delete;

  float Scale() const;
  void SetBounds(const PixelRect& bounds);

  // Moves into a window of another program, or back into its form's window.
  void MoveInto(WindowHandle host);
  void ReturnHome();

  bool IsInSight() const override;

  void RequestFocus() { top_.Focus(*this); }
  void ReportKey(int qt_key);

 Q_SIGNALS:
  // The window system, or another program through it, asks the window to close. The window stays.
  void CloseArrived();

 protected:
  bool event(QEvent* event) override;
  bool nativeEvent(const QByteArray& kind, void* message, qintptr* result) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void PostPresent() override;
  void Show(const std::vector<PixelRect>& dirty) override;
  bool FillOnServer(const std::vector<PixelRect>& dirty) const;
  void CopyToBuffer(const std::vector<PixelRect>& rects);
  bool IsHostInSight() const;
  void UpdateRatio();
  QRegion ToRegion(const std::vector<PixelRect>& rects) const;
  void CopyTo(QImage& image, const QRegion& region) const;
  MouseInput::Position ToToolkitPixels(const QPointF& position) const;

  TopWindow& top_;
  SurfaceEvents& events_;
  // Null where the window system shares no memory.
  std::shared_ptr<SharedPixels> shared_;
  QBackingStore buffer_{this};
  BandJoiner joiner_;
  PixelRect bounds_;
  double ratio_;
  std::unique_ptr<QWindow> host_;
  // The host is gone, and with it this window. Qt does not notice.
  bool is_gone_ = false;
  // The last answer of the window system about the host, and when it came.
  mutable bool host_is_in_sight_ = true;
  mutable QElapsedTimer host_was_asked_;
};

class SurfaceWindowPeer : public QtSurfacePeer {
 public:
  // All of them outlive the peer.
  SurfaceWindowPeer(TopWindow& top, Surface& surface, SurfaceEvents& events) : window_(top, surface, events) {}

  WindowHandle Handle() const override { return static_cast<WindowHandle>(window_.winId()); }
  float Scale() const override { return window_.Scale(); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void Invalidate() override { window_.PresentSoon(); }
  void Present() override { window_.Present(); }
  void TakeFocus() override { window_.RequestFocus(); }

  Presenter& Shown() override { return window_; }

 private:
  SurfaceWindow window_;
};

}  // namespace quorvale
