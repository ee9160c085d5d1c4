#include "platform/desktop/toolkit/surface_window.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop/toolkit/deliver.h"
#include "platform/desktop/toolkit/join_bands.h"
#include "platform/desktop/toolkit/key_codes.h"

namespace quorvale {
namespace {

const QEvent::Type kPresent = static_cast<QEvent::Type>(QEvent::registerEventType());

}  // namespace

SurfaceWindow::SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events)
    : QWindow(&top), top_(top), surface_(surface), events_(events), ratio_(top.devicePixelRatio()) {
  setSurfaceType(QSurface::RasterSurface);
  create();
  top.OfferFocus(*this);
}

float SurfaceWindow::Scale() const { return static_cast<float>(ToolkitScale(top_.Pixels(), ratio_)); }

void SurfaceWindow::SetBounds(const PixelRect& bounds) {
  bounds_ = bounds;
  const QRect rect = ToQtPixels(bounds, ToolkitPixelRatio(top_.Pixels(), ratio_));
  if (!rect.isEmpty()) setGeometry(rect);
  setVisible(!rect.isEmpty());
}

void SurfaceWindow::PresentSoon() {
  if (!std::exchange(present_is_posted_, true)) QCoreApplication::postEvent(this, new QEvent(kPresent));
}

void SurfaceWindow::Present() {
  // What is out of sight stays dirty until it is exposed.
  if (!IsInSight()) return;
  if (buffer_.size() != size()) {
    buffer_.resize(size());
    surface_.Changed(surface_.Bounds());
  }
  if (surface_.Dirty().IsEmpty()) return;
  const std::vector<PixelRect>& changed = surface_.Dirty().Take();
  const QRegion region = ToRegion(joiner_.Join(changed));
  buffer_.beginPaint(region);
  // Every platform on which Qt draws by itself has an image here.
  if (auto* const image = dynamic_cast<QImage*>(buffer_.paintDevice())) CopyTo(*image, changed);
  buffer_.endPaint();
  buffer_.flush(region);
  ++presentations_;
}

bool SurfaceWindow::IsInSight() const {
  if (!isExposed()) return false;
  for (const QWindow* ancestor = parent(); ancestor != nullptr; ancestor = ancestor->parent()) {
    if (!ancestor->isVisible() || !ancestor->isExposed()) return false;
  }
  return true;
}

void SurfaceWindow::TakeKey(int qt_key) {
  Deliver([&] { events_.OnKeyDown(VirtualKeyCode(qt_key)); });
}

bool SurfaceWindow::event(QEvent* event) {
  if (event->type() == kPresent) {
    present_is_posted_ = false;
    Present();
    return true;
  }
  if (event->type() == QEvent::Enter) top_.NotePointer(static_cast<QEnterEvent*>(event)->globalPosition());
  if (event->type() == QEvent::Expose) NoteRatio();
  return QWindow::event(event);
}

// A window learns of another ratio by being exposed anew.
void SurfaceWindow::NoteRatio() {
  if (std::exchange(ratio_, devicePixelRatio()) == devicePixelRatio()) return;
  SetBounds(bounds_);
  Deliver([this] { events_.OnScaleChanged(); });
}

void SurfaceWindow::paintEvent(QPaintEvent* event) {
  for (const QRect& rect : event->region()) {
    const QPointF first = QPointF(rect.topLeft()) * ratio_;
    const QPointF end = QPointF(rect.topLeft() + QPoint(rect.width(), rect.height())) * ratio_;
    const int left = static_cast<int>(std::floor(first.x()));
    const int top = static_cast<int>(std::floor(first.y()));
    surface_.Changed(
        Intersect({left, top, static_cast<int>(std::ceil(end.x())) - left, static_cast<int>(std::ceil(end.y())) - top},
                  surface_.Bounds()));
  }
  Present();
}

QRegion SurfaceWindow::ToRegion(const std::vector<PixelRect>& rects) const {
  QRegion region;
  if (ratio_ == 1) {
    std::vector<QRect> qt_rects;
    qt_rects.reserve(rects.size());
    for (const PixelRect& rect : rects) qt_rects.emplace_back(rect.left, rect.top, rect.width, rect.height);
    region.setRects(qt_rects.data(), static_cast<int>(qt_rects.size()));
    return region;
  }
  // Qt rounds on its way to the device; a pixel more on each side keeps what it drops inside.
  for (const PixelRect& rect : rects) {
    const QPoint first(static_cast<int>(std::floor(rect.left / ratio_)) - 1,
                       static_cast<int>(std::floor(rect.top / ratio_)) - 1);
    const QPoint last(static_cast<int>(std::ceil(rect.Right() / ratio_)),
                      static_cast<int>(std::ceil(rect.Bottom() / ratio_)));
    region += QRect(first, last);
  }
  return region & QRect(QPoint(), size());
}

void SurfaceWindow::CopyTo(QImage& image, const std::vector<PixelRect>& rects) const {
  const PixelView pixels = surface_.Pixels();
  const PixelRect both = Intersect(pixels.Bounds(), {0, 0, image.width(), image.height()});
  if (image.depth() == 32) {
    for (const PixelRect& rect : rects) {
      const PixelRect part = Intersect(rect, both);
      for (int y = part.top; y < part.Bottom(); ++y) {
        std::copy_n(pixels.Row(y) + part.left, part.width, reinterpret_cast<Pixel*>(image.scanLine(y)) + part.left);
      }
    }
    return;
  }
  // Displays of other depths are rare, and the painter knows them all. Without Qt's ratio it counts the
  // device's pixels.
  const QImage source(reinterpret_cast<const uchar*>(pixels.pixels), pixels.width, pixels.height,
                      static_cast<qsizetype>(pixels.stride) * static_cast<qsizetype>(sizeof(Pixel)),
                      QImage::Format_RGB32);
  QImage target(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format());
  QPainter painter(&target);
  for (const PixelRect& rect : rects) {
    painter.drawImage(rect.left, rect.top, source, rect.left, rect.top, rect.width, rect.height);
  }
}

QPoint SurfaceWindow::ToToolkitPixels(const QPointF& position) const {
  const QPointF pixels = position * ToolkitPixelRatio(top_.Pixels(), ratio_);
  return {static_cast<int>(std::floor(pixels.x())), static_cast<int>(std::floor(pixels.y()))};
}

void SurfaceWindow::keyPressEvent(QKeyEvent* event) { top_.TakeKey(event->key()); }

void SurfaceWindow::mousePressEvent(QMouseEvent* event) {
  if (!top_.IsInputEnabled()) return;
  const QPoint at = ToToolkitPixels(event->position());
  Deliver([&] { events_.OnMouseDown(at.x(), at.y()); });
}

void SurfaceWindow::mouseMoveEvent(QMouseEvent* event) {
  if (!top_.HasMoved(event->globalPosition()) || !top_.IsInputEnabled()) return;
  const QPoint at = ToToolkitPixels(event->position());
  Deliver([&] { events_.OnMouseMove(at.x(), at.y()); });
}

}  // namespace quorvale
