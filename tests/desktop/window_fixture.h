#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>
#include <memory>

#include "common/logged_events.h"
#include "platform/desktop/desktop_platform.h"
#include "toolkit/surface.h"

namespace quorvale {

// A window of the size of the primary monitor with one picture box in it, and their events.
class WindowFixture : public testing::Test, public LoggedEvents {
 protected:
  static constexpr PixelRect kMonitor{0, 0, 800, 600};

  explicit WindowFixture(PassLengths lengths = {}) : platform_({"Title of the program", {}, 1, lengths}) {
    window_ = platform_.CreateWindowPeer(WindowKind::kSaver, *this);
    window_->SetCaption("Fixture");
    window_->SetBounds(kMonitor);
  }

  void AddSurface(const PixelRect& bounds = kMonitor) {
    surface_.Resize(bounds.width, bounds.height, ToPixel(kBlack));
    surface_peer_ = platform_.CreateSurfacePeer(*window_, surface_, *this);
    surface_peer_->SetBounds(bounds);
  }

  void Show() {
    window_->SetVisible(true);
    platform_.PumpEvents();
  }

  static QWindow* Find(WindowHandle handle) {
    for (QWindow* const window : QGuiApplication::allWindows()) {
      if (window->handle() != nullptr && window->winId() == handle) return window;
    }
    return nullptr;
  }
  QWindow& FormWindow() { return *Find(window_->Handle()); }
  QWindow& BoxWindow() { return *Find(surface_peer_->Handle()); }

  QImage OnScreen() {
    return QGuiApplication::primaryScreen()
        ->grabWindow(surface_peer_->Handle())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  }

  static void PressKey(QWindow& window, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
  }
  static void MoveMouse(QWindow& window, QPoint at) { SendMouse(window, QEvent::MouseMove, at, Qt::NoButton); }
  static void PressMouse(QWindow& window, QPoint at) {
    SendMouse(window, QEvent::MouseButtonPress, at, Qt::LeftButton);
  }

  DesktopPlatform platform_;
  std::unique_ptr<WindowPeer> window_;
  Surface surface_;
  std::unique_ptr<SurfacePeer> surface_peer_;

 private:
  static void SendMouse(QWindow& window, QEvent::Type type, QPoint at, Qt::MouseButton button) {
    QMouseEvent event(type, at, window.mapToGlobal(at), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
  }
};

}  // namespace quorvale
