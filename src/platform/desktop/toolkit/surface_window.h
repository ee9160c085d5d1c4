#pragma once

#include <QBackingStore>
#include <QElapsedTimer>
#include <QRegion>
#include <QWindow>
#include <memory>
#include <vector>

#include "platform/common/presenter.h"
#include "platform/desktop/toolkit/join_bands.h"
#include "platform/desktop/toolkit/top_window.h"
#include "toolkit/surface.h"

namespace quorvale {

// A picture box's window: a window of the system's own, so that it can become a child of any other. It
// copies what has changed of the toolkit's surface to its own buffer and from there to the screen, with no
// widget machinery between, which takes twice as long over the thin shapes of the effects.
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

  // Sits in a window of another program from now on, or in its form's window again.
  void MoveInto(WindowHandle host);
  void ReturnHome();

  bool IsInSight() const override;

  void TakeFocus() { top_.Focus(*this); }
  void ReportKey(int qt_key);

 Q_SIGNALS:
  // The window system, or another program by its means, asks the window to close. Nothing else happens.
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
  void PrepareToShow() override;
  void Show(const std::vector<PixelRect>& dirty) override;
  bool IsHostInSight() const;
  void NoteRatio();
  QRegion ToRegion(const std::vector<PixelRect>& rects) const;
  void CopyTo(QImage& image, const QRegion& region) const;
  MouseInput::Position ToToolkitPixels(const QPointF& position) const;

  TopWindow& top_;
  SurfaceEvents& events_;
  QBackingStore buffer_{this};
  BandJoiner joiner_;
  PixelRect bounds_;
  double ratio_;
  std::unique_ptr<QWindow> host_;
  // The host went and took the window along; Qt takes no notice of that.
  bool is_gone_ = false;
  // What the window system last said of the host, and when.
  mutable bool host_is_in_sight_ = true;
  mutable QElapsedTimer host_was_asked_;
};

}  // namespace quorvale
