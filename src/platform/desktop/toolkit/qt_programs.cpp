#include "platform/desktop/toolkit/qt_programs.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace quorvale {

void QtPrograms::SendKeys(const std::string& keys) {
  if (keys != "{F1}") return;
  QWidget* target = QApplication::focusWidget();
  if (target == nullptr) target = QApplication::activeModalWidget();
  if (target == nullptr) return;
  QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
  QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, Qt::Key_F1, Qt::NoModifier));
}

}  // namespace quorvale
