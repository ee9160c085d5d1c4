#include "platform/desktop/toolkit/black_windows.h"

#include <QGuiApplication>
#include <QScreen>

#include "platform/desktop/toolkit/black_window.h"

namespace quorvale {

BlackWindows::BlackWindows(TopWindow& saver) : saver_(saver), screen_watch_([this] { CoverMonitors(); }) {
  CoverMonitors();
}

BlackWindows::~BlackWindows() = default;

void BlackWindows::Hide() {
  is_hidden_ = true;
  for (const auto& window : windows_) window->hide();
}

void BlackWindows::CoverMonitors() {
  if (is_hidden_) return;
  windows_.clear();
  const QScreen* const primary = QGuiApplication::primaryScreen();
  if (primary == nullptr) return;
  for (QScreen* const monitor : QGuiApplication::screens()) {
    // A monitor that mirrors the primary one shows the show.
    if (monitor == primary || monitor->geometry().topLeft() == primary->geometry().topLeft()) continue;
    windows_.push_back(std::make_unique<BlackWindow>(*monitor, saver_));
  }
}

}  // namespace quorvale
