#include "platform/desktop/toolkit/message_hook_peer.h"

#include <QGuiApplication>

#include "platform/desktop/toolkit/deliver.h"
#include "platform/desktop/toolkit/surface_window.h"
#include "toolkit/message_hook.h"

namespace quorvale {

void QtMessageHookPeer::Watch(WindowHandle window) {
  connection_.disconnect();
  for (QWindow* const own : QGuiApplication::allWindows()) {
    auto* const box = qobject_cast<SurfaceWindow*>(own);
    if (box == nullptr || static_cast<WindowHandle>(box->winId()) != window) continue;
    QObject::connect(box, &SurfaceWindow::CloseArrived, &connection_, [this] { Arrived(kWmClose); });
  }
}

void QtMessageHookPeer::Arrived(int message) {
  if (reported_.contains(message)) Deliver([&] { arrived_(message); });
}

}  // namespace quorvale
