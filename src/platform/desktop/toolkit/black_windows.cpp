#include "platform/desktop/toolkit/black_windows.h"

#include <QGuiApplication>
#include <QScreen>

#include "platform/desktop/toolkit/black_window.h"

namespace quorvale {

BlackWindows::BlackWindows(TopWindow& saver) : saver_(saver) {
  // Monitors come and go together with the rest of the layout, so it is looked at when all of that is over.
  const auto follow = [this] { CoverMonitors(); };
  connect(qGuiApp, &QGuiApplication::screenAdded, this, follow, Qt::QueuedConnection);
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, follow, Qt::QueuedConnection);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, follow, Qt::QueuedConnection);
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
  for (QScreen* const monitor : QGuiApplication::screens()) {
    // A monitor that mirrors the primary one shows the show.
    if (monitor == primary || monitor->geometry().topLeft() == primary->geometry().topLeft()) continue;
    windows_.push_back(std::make_unique<BlackWindow>(*monitor, saver_));
    connect(
        monitor, &QScreen::geometryChanged, windows_.back().get(), [this] { CoverMonitors(); }, Qt::QueuedConnection);
  }
}

}  // namespace quorvale
