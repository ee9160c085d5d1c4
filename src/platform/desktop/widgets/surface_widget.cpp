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
#include "platform/desktop/toolkit/key_codes.h"
#include "platform/desktop/toolkit/pixel_kind.h"

namespace quorvale {
namespace {

const QEvent::Type kPresent = static_cast<QEvent::Type>(QEvent::registerEventType());

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

void SurfaceWidget::PostPresent() { QCoreApplication::postEvent(this, new QEvent(kPresent)); }

void SurfaceWidget::Show(const std::vector<PixelRect>& dirty) { repaint(ToRegion(dirty)); }

bool SurfaceWidget::IsInSight() const {
  const QWindow* const top = window()->windowHandle();
  return isVisible() && !window()->isMinimized() && top != nullptr && top->isExposed();
}

bool SurfaceWidget::event(QEvent* event) {
  if (event->type() != kPresent) return QWidget::event(event);
  PresentPosted();
  return true;
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
  if (Scale() != scale_)
    QMetaObject::invokeMethod(
        this, [this] { NoteScale(); }, Qt::QueuedConnection);
  QPainter painter(this);
  const PixelView pixels = Shown().Pixels();
  QImage image(reinterpret_cast<const uchar*>(pixels.pixels), pixels.width, pixels.height,
               static_cast<qsizetype>(pixels.stride) * static_cast<qsizetype>(sizeof(Pixel)), QImage::Format_RGB32);
  image.setDevicePixelRatio(devicePixelRatioF());
  // Where the ratio is no whole number the surface may end a pixel early.
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

// The window has come to a screen of another ratio.
void SurfaceWidget::NoteScale() {
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
