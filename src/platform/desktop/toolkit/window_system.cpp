#include "platform/desktop/toolkit/window_system.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QString>
#include <QWidget>
#include <QWindow>
#include <limits>

#include "base/failure.h"
#include "platform/desktop/system/x11_windows.h"
#include "platform/desktop/toolkit/surface_window.h"
#include "platform/desktop/toolkit/top_window.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

constexpr WindowHandle kWindowOfAnotherRun = std::numeric_limits<WindowHandle>::max();

WindowHandle HandleOf(const QWindow& window) { return static_cast<WindowHandle>(window.winId()); }

// A window of this program, or null. Qt also lists the hosts of moved picture boxes.
QWindow* FindOwn(WindowHandle handle) {
  for (QWindow* const window : QGuiApplication::allWindows()) {
    const bool is_ours = window->handle() != nullptr && window->type() != Qt::ForeignWindow;
    if (handle != 0 && is_ours && HandleOf(*window) == handle) return window;
  }
  return nullptr;
}

QWindow* FindOwnByTitle(const std::string& title) {
  for (QWindow* const window : QGuiApplication::topLevelWindows()) {
    if (window->handle() != nullptr && window->title().toStdString() == title) return window;
  }
  return nullptr;
}

void ActivateOwn(QWindow& window) {
  if (auto* const form = qobject_cast<TopWindow*>(&window)) form->Raise();
  window.requestActivate();
}

bool IsX11Id(WindowHandle handle) { return handle != 0 && handle <= std::numeric_limits<std::uint32_t>::max(); }

}  // namespace

int CursorCount::Show(bool show) {
  count_ += show ? 1 : -1;
  SetHidden(count_ < 0);
  return count_;
}

void CursorCount::SetHidden(bool hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  if (hidden) {
    QGuiApplication::setOverrideCursor(Qt::BlankCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

WindowHandle QtWindowSystem::FindWindow(const std::string& title) {
  if (const QWindow* const own = FindOwnByTitle(title)) return HandleOf(*own);
  if (ignores_others_) return 0;
  if (xcb_connection_t* const x11 = X11Connection()) {
    if (const std::uint32_t found = FindTopLevelByTitle(x11, title)) return found;
  }
  return titles_.IsClaimed(title) ? kWindowOfAnotherRun : 0;
}

WindowHandle QtWindowSystem::GetForegroundWindow() {
  if (const QWindow* own = QGuiApplication::focusWindow()) {
    while (own->parent() != nullptr) own = own->parent();
    return HandleOf(*own);
  }
  xcb_connection_t* const x11 = X11Connection();
  return x11 != nullptr ? ActiveWindow(x11) : 0;
}

void QtWindowSystem::EnableWindow(WindowHandle window, bool enabled) {
  if (auto* const own = qobject_cast<TopWindow*>(FindOwn(window))) own->SetInputEnabled(enabled);
}

bool QtWindowSystem::IsWindow(WindowHandle window) {
  if (FindOwn(window) != nullptr) return true;
  xcb_connection_t* const x11 = X11Connection();
  return x11 != nullptr && IsX11Id(window) && WindowExists(x11, static_cast<std::uint32_t>(window));
}

void QtWindowSystem::GetClientRect(WindowHandle window, ClientRect& rect) {
  xcb_connection_t* const x11 = X11Connection();
  int width = 0;
  int height = 0;
  if (x11 != nullptr && IsX11Id(window) && ReadWindowSize(x11, static_cast<std::uint32_t>(window), width, height)) {
    rect = {0, 0, width, height};
  }
}

void QtWindowSystem::SetParent(WindowHandle window, WindowHandle parent) {
  auto* const box = qobject_cast<SurfaceWindow*>(FindOwn(window));
  if (box == nullptr) return;
  if (FindOwn(parent) != nullptr || parent == 0) {
    box->ReturnHome();
  } else if (IsWindow(parent)) {
    box->MoveInto(parent);
  }
}

void QtWindowSystem::SetWindowPos(WindowHandle window, std::intptr_t insert_after, int x, int y, int width, int height,
                                  std::uint32_t flags) {
  auto* const own = qobject_cast<TopWindow*>(FindOwn(window));
  if (own == nullptr) return;
  // A show's windows stay on top from the start.
  if (insert_after == kHwndTopmost) own->Raise();
  if ((flags & kSwpNoSizeNoMove) == 0) own->SetBounds({x, y, width, height});
}

void QtWindowSystem::ActivateWindow(const std::string& title) {
  if (QWindow* const own = FindOwnByTitle(title)) {
    ActivateOwn(*own);
    return;
  }
  xcb_connection_t* const x11 = X11Connection();
  const std::uint32_t found = x11 != nullptr ? FindTopLevelByTitle(x11, title) : 0;
  if (found == 0) throw Failure(FailureNumber::kNotFound, "No window is titled " + title, "QtWindowSystem");
  quorvale::ActivateWindow(x11, found);
}

void QtWindowSystem::ActivateWindow(WindowHandle window) {
  if (QWindow* const own = FindOwn(window)) {
    ActivateOwn(*own);
    return;
  }
  if (!IsWindow(window)) throw Failure(FailureNumber::kNotFound, "No such window", "QtWindowSystem");
  quorvale::ActivateWindow(X11Connection(), static_cast<std::uint32_t>(window));
}

void QtPrograms::SendKeys(const std::string& keys) {
  if (keys != "{F1}") return;
  QWidget* target = QApplication::focusWidget();
  if (target == nullptr) target = QApplication::activeModalWidget();
  if (target == nullptr) return;
  QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
  QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, Qt::Key_F1, Qt::NoModifier));
}

}  // namespace quorvale
