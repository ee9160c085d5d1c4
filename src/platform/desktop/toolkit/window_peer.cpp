#include "platform/desktop/toolkit/window_peer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QString>
#include <QThread>
#include <QTimer>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/black_window.h"

namespace quorvale {

namespace {

constexpr int kLongestWait = 500;  // milliseconds

// A form may be busy for seconds once it has shown its window, and nothing is painted before events are handled. What
// the user does meanwhile is kept for later.
void WaitUntilPainted(const QWindow& window) {
  const QDeadlineTimer deadline(kLongestWait);
  while (!window.isExposed() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(1);
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

QtWindowPeer::QtWindowPeer(WindowKind kind, PixelKind pixels, WindowEvents& events, TitleLock& titles,
                           WindowHandle daemon_window)
    : covers_screen_(kind == WindowKind::kSaver && daemon_window == 0),
      events_(events),
      titles_(titles),
      window_(kind, pixels, events, daemon_window) {}

QtWindowPeer::~QtWindowPeer() { SetVisible(false); }

WindowHandle QtWindowPeer::Handle() const { return static_cast<WindowHandle>(window_.winId()); }

void QtWindowPeer::SetCaption(const std::string& caption) {
  caption_ = caption;
  window_.setTitle(QString::fromStdString(caption));
}

void QtWindowPeer::SetVisible(bool visible) {
  if (visible == window_.isVisible()) return;
  if (!visible) {
    window_.Disappear();
    if (black_windows_) black_windows_->Hide();
    if (covers_screen_) titles_.Release(caption_);
  } else if (covers_screen_) {
    ShowSaver();
  } else {
    window_.Appear();
  }
}

void QtWindowPeer::ShowSaver() {
  if (!titles_.Claim(caption_) && titles_.IsClaimed(caption_)) {
    // Two runs started at the same moment, and each saw no other. The one that came second gives way.
    QTimer::singleShot(0, &window_, [this] { Deliver([this] { events_.OnCloseRequested(); }); });
    return;
  }
  window_.Appear();
  black_windows_ = CoverOtherMonitors(window_);
  WaitUntilPainted(window_);
}

}  // namespace quorvale
