#pragma once

#include <QWidget>
#include <vector>

#include "platform/desktop/toolkit/surface_peer.h"
#include "platform/desktop/widgets/dialog_window.h"
#include "toolkit/surface.h"

namespace quorvale {

// A picture box among a dialog's controls. It is painted like any widget, which is fast enough for its size.
class SurfaceWidget : public QWidget, public Presenter {
  Q_OBJECT

 public:
  // `surface` and `events` outlive the widget.
  SurfaceWidget(DialogWindow& window, Surface& surface, SurfaceEvents& events);

  float Scale() const;
  void SetBounds(const PixelRect& bounds);

  bool IsInSight() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void PostPresent() override;
  void Show(const std::vector<PixelRect>& dirty) override;
  void UpdateScale();
  QRegion ToRegion(const std::vector<PixelRect>& rects) const;

  SurfaceEvents& events_;
  float scale_;
};

class SurfaceWidgetPeer : public QtSurfacePeer {
 public:
  // All of them outlive the peer.
  SurfaceWidgetPeer(DialogWindow& window, Surface& surface, SurfaceEvents& events)
      : widget_(new SurfaceWidget(window, surface, events)) {}
  ~SurfaceWidgetPeer() override { delete widget_; }
  SurfaceWidgetPeer(const SurfaceWidgetPeer&) = delete;
  SurfaceWidgetPeer& operator=(const SurfaceWidgetPeer&) = delete;

  WindowHandle Handle() const override { return static_cast<WindowHandle>(widget_->winId()); }
  float Scale() const override { return widget_->Scale(); }
  void SetBounds(const PixelRect& bounds) override { widget_->SetBounds(bounds); }
  void Invalidate() override { widget_->PresentSoon(); }
  void Present() override { widget_->Present(); }
  void TakeFocus() override {
    if (widget_) widget_->setFocus();
  }

  Presenter& Shown() override { return *widget_; }

 private:
  // Null if the window was destroyed first.
  QPointer<SurfaceWidget> widget_;
};

}  // namespace quorvale
