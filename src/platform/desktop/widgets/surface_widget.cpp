#include "platform/desktop/widgets/surface_widget.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRegion>
#include <QWindow>
#include <cmath>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/pixels.h"

namespace quorvale {
namespace {

int ToToolkitPixel(double position) { return static_cast<int>(std::floor(position / LayoutScale())); }

}  // namespace

SurfaceWidget::SurfaceWidget(DialogWindow& window, Surface& surface, SurfaceEvents& events)
    : QWidget(&window.ContainerOf(nullptr)), Presenter(surface), events_(events), scale_(Scale()) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

float SurfaceWidget::Scale() const {
  return static_cast<float>(ToolkitScale(PixelKind::kLogical, devicePixelRatioF()));
}

void SurfaceWidget::SetBounds(const PixelRect& bounds) {
  setGeometry(ToQtPixels(bounds, 1 / LayoutScale()));
  setVisible(!bounds.IsEmpty());
}

void SurfaceWidget::PostPresent() { QCoreApplication::postEvent(this, new QEvent(PresentEvent())); }

void SurfaceWidget::Show(const std::vector<PixelRect>& dirty) { repaint(ToRegion(dirty)); }

bool SurfaceWidget::IsInSight() const {
  const QWindow* const top = window()->windowHandle();
  return isVisible() && !window()->isMinimized() && top != nullptr && top->isExposed();
}

bool SurfaceWidget::event(QEvent* event) {
  if (event->type() != PresentEvent()) return QWidget::event(event);
  PresentPosted();
  return true;
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
  if (Scale() != scale_)
    QMetaObject::invokeMethod(
        this, [this] { UpdateScale(); }, Qt::QueuedConnection);
  QPainter painter(this);
  const ConstPixelView pixels = Shown().Seen();
  QImage image = ImageOver(pixels);
  image.setDevicePixelRatio(devicePixelRatioF());
  // With a fractional ratio the surface may be a pixel smaller.
  if (QSizeF(image.size()) != QSizeF(size()) * devicePixelRatioF()) painter.fillRect(event->rect(), Qt::black);
  if (!image.isNull()) painter.drawImage(QPointF(), image);
}

void SurfaceWidget::keyPressEvent(QKeyEvent* event) {
  Deliver([&] { events_.OnKeyDown(VirtualKeyCode(event->key())); });
  QWidget::keyPressEvent(event);
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  Deliver([&] { events_.OnMouseDown(ToToolkitPixel(at.x()), ToToolkitPixel(at.y())); });
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  Deliver([&] { events_.OnMouseMove(ToToolkitPixel(at.x()), ToToolkitPixel(at.y())); });
}

// The window has moved to a screen of another ratio.
void SurfaceWidget::UpdateScale() {
  if (std::exchange(scale_, Scale()) != scale_) Deliver([this] { events_.OnScaleChanged(); });
}

QRegion SurfaceWidget::ToRegion(const std::vector<PixelRect>& rects) const {
  const double ratio = devicePixelRatioF();
  QRegion region;
  for (const PixelRect& rect : rects) {
    const QPoint first(static_cast<int>(std::floor(rect.left / ratio)), static_cast<int>(std::floor(rect.top / ratio)));
    const QPoint end(static_cast<int>(std::ceil(rect.Right() / ratio)),
                     static_cast<int>(std::ceil(rect.Bottom() / ratio)));
    region += QRect(first, end - QPoint(1, 1));
  }
  return region;
}

}  // namespace quorvale
