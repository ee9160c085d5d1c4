#include "platform/desktop/toolkit/message_boxes.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QWindow>

#include "platform/desktop/toolkit/top_window.h"
#include "platform/desktop/toolkit/x11_session.h"

namespace quorvale {
namespace {

QMessageBox::StandardButtons ToQt(MessageBoxButtons buttons) {
  switch (buttons) {
    case MessageBoxButtons::kOk:
      return QMessageBox::Ok;
    case MessageBoxButtons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageBoxButtons::kAbortRetryIgnore:
      return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton DefaultOf(MessageBoxButtons buttons) {
  switch (buttons) {
    case MessageBoxButtons::kOk:
      return QMessageBox::Ok;
    case MessageBoxButtons::kYesNoCancel:
      return QMessageBox::Yes;
    case MessageBoxButtons::kAbortRetryIgnore:
      return QMessageBox::Abort;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon ToQt(MessageBoxIcon icon) {
  switch (icon) {
    case MessageBoxIcon::kNone:
      return QMessageBox::NoIcon;
    case MessageBoxIcon::kInformation:
      return QMessageBox::Information;
    case MessageBoxIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageBoxIcon::kQuestion:
      return QMessageBox::Question;
  }
  return QMessageBox::NoIcon;
}

MessageBoxAnswer ToAnswer(int button) {
  switch (button) {
    case QMessageBox::Ok:
      return MessageBoxAnswer::kOk;
    case QMessageBox::Cancel:
      return MessageBoxAnswer::kCancel;
    case QMessageBox::Abort:
      return MessageBoxAnswer::kAbort;
    case QMessageBox::Retry:
      return MessageBoxAnswer::kRetry;
    case QMessageBox::Ignore:
      return MessageBoxAnswer::kIgnore;
    case QMessageBox::Yes:
      return MessageBoxAnswer::kYes;
    case QMessageBox::No:
      return MessageBoxAnswer::kNo;
    default:
      return MessageBoxAnswer::kNone;
  }
}

// The topmost window of this program, above which the box has to be.
QWindow* Below(const QWindow* box) {
  QWindow* below = QGuiApplication::focusWindow();
  if (below != nullptr && below != box) return below;
  for (QWindow* const window : QGuiApplication::topLevelWindows()) {
    if (window != box && window->isVisible() && !window->flags().testFlag(Qt::WindowDoesNotAcceptFocus)) return window;
  }
  return nullptr;
}

void HoldKeyboard(bool hold) {
  for (QWindow* const window : QGuiApplication::topLevelWindows()) {
    if (auto* const form = qobject_cast<TopWindow*>(window)) form->HoldKeyboard(hold);
  }
}

void MoveToMiddle(QMessageBox& box) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  box.adjustSize();
  box.move(screen->geometry().center() - box.rect().center());
}

}  // namespace

MessageBoxAnswer ShowQtMessageBox(const MessageBox& box, const std::string& application_title,
                                  EndedLoops& ended_loops) {
  QMessageBox dialog;
  dialog.setWindowTitle(QString::fromStdString(box.title.empty() ? application_title : box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(QString::fromStdString(box.text).replace('\r', '\n'));
  dialog.setIcon(ToQt(box.icon));
  dialog.setStandardButtons(ToQt(box.buttons));
  dialog.setDefaultButton(DefaultOf(box.buttons));
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
  if (X11Connection() != nullptr && !HasWindowManager(X11Connection())) {
    dialog.setWindowFlag(Qt::X11BypassWindowManagerHint);
  }
  MoveToMiddle(dialog);
  dialog.winId();
  dialog.windowHandle()->setTransientParent(Below(dialog.windowHandle()));
  QMetaObject::invokeMethod(
      &dialog, [&dialog] { dialog.activateWindow(); }, Qt::QueuedConnection);
  bool has_answer = false;
  const EndedLoops::Loop loop(ended_loops, [&has_answer] { return has_answer; });
  QObject::connect(&dialog, &QDialog::finished, &dialog, [&has_answer] { has_answer = true; });
  HoldKeyboard(false);
  const int button = dialog.exec();
  HoldKeyboard(true);
  return ToAnswer(button);
}

}  // namespace quorvale
