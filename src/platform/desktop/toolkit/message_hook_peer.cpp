#include "platform/desktop/toolkit/message_hook_peer.h"

#include <QGuiApplication>
#include <QWidget>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/surface_window.h"
#include "platform/desktop/widgets/dialog_window.h"
#include "toolkit/message_hook.h"

namespace quorvale {

void QtMessageHookPeer::Watch(WindowHandle window) {
  connection_.disconnect();
  for (QWindow* const own : QGuiApplication::allWindows()) {
    auto* const box = qobject_cast<SurfaceWindow*>(own);
    if (box == nullptr || static_cast<WindowHandle>(box->winId()) != window) continue;
    QObject::connect(box, &SurfaceWindow::CloseArrived, &connection_, [this] { Arrived(kWmClose); });
  }
  if (auto* const dialog = qobject_cast<DialogWindow*>(QWidget::find(static_cast<WId>(window)))) {
    QObject::connect(dialog, &DialogWindow::MenusClosed, &connection_, [this] { Arrived(kWmExitMenuLoop); });
  }
}

void QtMessageHookPeer::Arrived(int message) {
  if (reported_.contains(message)) Deliver([&] { arrived_(message); });
}

}  // namespace quorvale
