#include "platform/desktop/toolkit/surface_window.h"

#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/join_bands.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {

SurfaceWindow::SurfaceWindow(TopWindow& top, Surface& surface, SurfaceEvents& events)
    : QWindow(&top), Presenter(surface), top_(top), events_(events), ratio_(top.devicePixelRatio()) {
  setSurfaceType(QSurface::RasterSurface);
  create();
  if (xcb_connection_t* const x11 = X11Connection()) {
    shared_ = SharedPixels::For(x11, static_cast<std::uint32_t>(winId()));
    surface.UseMemory(shared_);
  }
  top.OfferFocus(*this);
}

// Qt would delete this window together with the host's window object.
SurfaceWindow::~SurfaceWindow() {
  if (!host_) return;
  destroy();
  setParent(static_cast<QWindow*>(nullptr));
}

float SurfaceWindow::Scale() const { return static_cast<float>(ToolkitScale(top_.Pixels(), ratio_)); }

void SurfaceWindow::SetBounds(const PixelRect& bounds) {
  bounds_ = bounds;
  const QRect rect = ToQtPixels(bounds, ToolkitPixelRatio(top_.Pixels(), ratio_));
  if (!rect.isEmpty()) setGeometry(rect);
  setVisible(!rect.isEmpty());
}

void SurfaceWindow::PostPresent() { QCoreApplication::postEvent(this, new QEvent(PresentEvent())); }

void SurfaceWindow::Show(const std::vector<PixelRect>& dirty) {
  if (FillOnServer(dirty)) return;
  const std::vector<PixelRect>& rects = joiner_.Join(dirty);
  // Pixels are not shared where memory was short.
  if (!shared_ || !shared_->Put(static_cast<std::uint32_t>(winId()), Shown().Seen(), rects)) CopyToBuffer(rects);
}

void SurfaceWindow::CopyToBuffer(const std::vector<PixelRect>& rects) {
  QRegion region = ToRegion(rects);
  if (buffer_.size() != size()) {
    buffer_.resize(size());
    region = QRect(QPoint(), size());
  }
  buffer_.beginPaint(region);
  // On every platform where Qt renders by itself the paint device is an image.
  if (auto* const image = dynamic_cast<QImage*>(buffer_.paintDevice())) CopyTo(*image, region);
  buffer_.endPaint();
  buffer_.flush(region);
}

// An X server fills a screen in a fraction of the time that copying the pixels there takes.
bool SurfaceWindow::FillOnServer(const std::vector<PixelRect>& dirty) const {
  xcb_connection_t* const x11 = X11Connection();
  if (x11 == nullptr) return false;
  const std::optional<Pixel> colour = Shown().SolidColour(dirty.front());
  std::vector<xcb_rectangle_t> rects;
  for (const PixelRect& rect : dirty) {
    if (!colour || Shown().SolidColour(rect) != colour) return false;
    rects.push_back({static_cast<std::int16_t>(rect.left), static_cast<std::int16_t>(rect.top),
                     static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height)});
  }
  return FillRectangles(x11, static_cast<std::uint32_t>(winId()), rects, *colour & 0xFFFFFFU);
}

void SurfaceWindow::MoveInto(WindowHandle host) {
  std::unique_ptr<QWindow> foreign(QWindow::fromWinId(static_cast<WId>(host)));
  if (!foreign) return;
  setParent(foreign.get());
  host_ = std::move(foreign);
  SetBounds(bounds_);
}

void SurfaceWindow::ReturnHome() {
  if (!host_ || is_gone_) return;
  setParent(&top_);
  host_.reset();
}

// No event reports that another program's window around this one has left the screen. The question to the server takes
// longer than a pass of an effect may.
bool SurfaceWindow::IsHostInSight() const {
  constexpr int kMillisecondsBetween = 50;
  if (!host_was_asked_.isValid() || host_was_asked_.hasExpired(kMillisecondsBetween)) {
    host_is_in_sight_ = IsViewable(X11Connection(), static_cast<std::uint32_t>(winId()));
    host_was_asked_.start();
  }
  return host_is_in_sight_;
}

// On Wayland Qt reports no exposure to a child window, so its top window answers for it.
bool SurfaceWindow::IsInSight() const {
  if (is_gone_) return false;
  if (host_) return isExposed() && IsHostInSight();
  const QWindow* window = this;
  while (window->isVisible() && window->parent() != nullptr) window = window->parent();
  return window->isVisible() && window->isExposed();
}

void SurfaceWindow::ReportKey(int qt_key) {
  Deliver([&] { events_.OnKeyDown(VirtualKeyCode(qt_key)); });
}

bool SurfaceWindow::event(QEvent* event) {
  if (event->type() == PresentEvent()) {
    PresentPosted();
    return true;
  }
  if (event->type() == QEvent::Close) {
    event->ignore();
    Q_EMIT CloseArrived();
    return true;
  }
  if (event->type() == QEvent::Enter)
    top_.Mouse().SetPointer(ToPosition(static_cast<QEnterEvent*>(event)->globalPosition()));
  if (event->type() == QEvent::Expose) {
    host_was_asked_.invalidate();
    UpdateRatio();
  }
  return QWindow::event(event);
}

bool SurfaceWindow::nativeEvent(const QByteArray& kind, void* message, qintptr* /*result*/) {
  constexpr std::uint8_t kEventBits = 0x7F;
  if (kind == "xcb_generic_event_t" &&
      (static_cast<const xcb_generic_event_t*>(message)->response_type & kEventBits) == XCB_DESTROY_NOTIFY) {
    is_gone_ = true;
  }
  return false;
}

// Qt exposes a window again when its ratio changes.
void SurfaceWindow::UpdateRatio() {
  if (ratio_ == devicePixelRatio()) return;
  const float scale = Scale();
  ratio_ = devicePixelRatio();
  SetBounds(bounds_);
  if (Scale() != scale) Deliver([this] { events_.OnScaleChanged(); });
}

void SurfaceWindow::paintEvent(QPaintEvent* event) {
  host_was_asked_.invalidate();
  for (const QRect& rect : event->region()) {
    const QPointF first = QPointF(rect.topLeft()) * ratio_;
    const QPointF end = QPointF(rect.topLeft() + QPoint(rect.width(), rect.height())) * ratio_;
    const int left = static_cast<int>(std::floor(first.x()));
    const int top = static_cast<int>(std::floor(first.y()));
    Shown().Changed(
        Intersect({left, top, static_cast<int>(std::ceil(end.x())) - left, static_cast<int>(std::ceil(end.y())) - top},
                  Shown().Bounds()));
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
  // Qt rounds when it converts to device pixels; one more pixel on each side makes up for that.
  for (const PixelRect& rect : rects) {
    const QPoint first(static_cast<int>(std::floor(rect.left / ratio_)) - 1,
                       static_cast<int>(std::floor(rect.top / ratio_)) - 1);
    const QPoint last(static_cast<int>(std::ceil(rect.Right() / ratio_)),
                      static_cast<int>(std::ceil(rect.Bottom() / ratio_)));
    region += QRect(first, last);
  }
  return region & QRect(QPoint(), size());
}

// Covers the whole region, since some platforms clear it first.
void SurfaceWindow::CopyTo(QImage& image, const QRegion& region) const {
  const ConstPixelView pixels = Shown().Seen();
  if (pixels.Bounds().IsEmpty()) return;
  const QImage source = ImageOver(pixels);
  // The same memory without Qt's ratio, so that the painter counts device pixels.
  QImage target(image.bits(), image.width(), image.height(), image.bytesPerLine(), image.format());
  QPainter painter(&target);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  for (const QRect& rect : region) {
    const int left = static_cast<int>(std::floor(rect.left() * ratio_));
    const int top = static_cast<int>(std::floor(rect.top() * ratio_));
    const int width = static_cast<int>(std::ceil((rect.right() + 1) * ratio_)) - left;
    const int height = static_cast<int>(std::ceil((rect.bottom() + 1) * ratio_)) - top;
    painter.drawImage(left, top, source, left, top, width, height);
  }
}

MouseInput::Position SurfaceWindow::ToToolkitPixels(const QPointF& position) const {
  return ToPosition(position * ToolkitPixelRatio(top_.Pixels(), ratio_));
}

void SurfaceWindow::keyPressEvent(QKeyEvent* event) { top_.ReportKey(event->key()); }

void SurfaceWindow::mousePressEvent(QMouseEvent* event) {
  top_.Mouse().ReportDown(events_, ToToolkitPixels(event->position()));
}

void SurfaceWindow::mouseMoveEvent(QMouseEvent* event) {
  top_.Mouse().ReportMove(events_, ToPosition(event->globalPosition()), ToToolkitPixels(event->position()));
}

}  // namespace quorvale
