#include "platform/desktop/toolkit/screen_watch.h"

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace quorvale {

ScreenWatch::ScreenWatch(std::function<void()> changed) : changed_(std::move(changed)) {
  for (QScreen* const screen : QGuiApplication::screens()) Watch(*screen);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
    Watch(*screen);
    TellSoon();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { TellSoon(); });
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { TellSoon(); });
}

void ScreenWatch::Watch(QScreen& screen) {
  connect(&screen, &QScreen::geometryChanged, this, [this] { TellSoon(); });
}

void ScreenWatch::TellSoon() {
  if (std::exchange(is_telling_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        is_telling_ = false;
        changed_();
      },
      Qt::QueuedConnection);
}

}  // namespace quorvale
