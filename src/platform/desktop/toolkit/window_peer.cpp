#include "platform/desktop/toolkit/window_peer.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QString>
#include <QThread>
#include <QTimer>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

constexpr int kLongestWait = 500;  // milliseconds

// Passes input on to the show's window.
class QtBlackWindow : public QWindow, public BlackWindow {
 public:
  explicit QtBlackWindow(TopWindow& saver) : saver_(saver) {
    setSurfaceType(QSurface::RasterSurface);
    setFlags(MonitorWindowFlags());
  }

  void Cover(const PixelRect& monitor) override {
    const QRect place(monitor.left, monitor.top, monitor.width, monitor.height);
    for (QScreen* const candidate : QGuiApplication::screens()) {
      if (candidate->geometry() != place || screen() == candidate) continue;
      // A full-screen window on Wayland stays on the monitor where it appeared.
      hide();
      setScreen(candidate);
    }
    setGeometry(place);
    if (X11Connection() != nullptr) {
      show();
    } else {
      showFullScreen();
    }
  }
  void Hide() override { hide(); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::Close) {
      event->ignore();
      return true;
    }
    if (event->type() == QEvent::Enter) {
      saver_.Mouse().SetPointer(ToPosition(static_cast<QEnterEvent*>(event)->globalPosition()));
    }
    return QWindow::event(event);
  }
  void paintEvent(QPaintEvent* /*event*/) override {
    const QRect all(QPoint(), size());
    if (buffer_.size() != size()) buffer_.resize(size());
    buffer_.beginPaint(all);
    QPainter(buffer_.paintDevice()).fillRect(all, Qt::black);
    buffer_.endPaint();
    buffer_.flush(all);
  }
  void keyPressEvent(QKeyEvent* event) override { saver_.ReportKey(event->key()); }
  void mousePressEvent(QMouseEvent* /*event*/) override { saver_.Mouse().ReportDown(); }
  void mouseMoveEvent(QMouseEvent* event) override { saver_.Mouse().ReportMove(ToPosition(event->globalPosition())); }

 private:
  TopWindow& saver_;
  QBackingStore buffer_{this};
};

// A form may be busy for seconds after it has shown its window, and nothing is painted before events are handled.
// Input that arrives meanwhile is kept for later.
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
                           const DaemonWindow& daemon)
    : kind_(kind),
      covers_screen_(IsSaver(kind) && daemon.handle == 0),
      events_(events),
      titles_(titles),
      window_(kind, pixels, events, daemon) {
  QObject::connect(&window_, &TopWindow::MonitorsChanged, &window_, [this] {
    if (black_windows_) black_windows_->CoverMonitors();
  });
}

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
    if (kind_ == WindowKind::kMonitor) WaitUntilPainted(window_);
  }
}

void QtWindowPeer::ShowSaver() {
  if (!titles_.Claim(caption_) && titles_.IsClaimed(caption_)) {
    // Two runs started at the same moment, and neither saw the other. The second one to claim the title ends.
    QTimer::singleShot(0, &window_, [this] { Deliver([this] { events_.OnCloseRequested(); }); });
    return;
  }
  window_.Appear();
  if (kind_ == WindowKind::kSaver) {
    black_windows_ =
        std::make_unique<BlackWindows>(AllMonitors, [this] { return std::make_unique<QtBlackWindow>(window_); });
  }
  WaitUntilPainted(window_);
}

}  // namespace quorvale
