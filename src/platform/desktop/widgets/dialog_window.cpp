#include "platform/desktop/widgets/dialog_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/pixel_kind.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/label_widget.h"
#include "toolkit/panels.h"
#include "toolkit/spoken_name.h"

namespace quorvale {

DialogWindow::DialogWindow(WindowEvents& events)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      events_(events),
      client_(new QWidget(this)) {
  setModal(true);
  client_->setFont(DialogFont());
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(client_);
}

void DialogWindow::SetBounds(const PixelRect& bounds) {
  const QRect rect = ToQtPixels(bounds, 1 / LayoutScale());
  client_->setFixedSize(rect.size());
  layout()->activate();
  const QScreen* const primary = QGuiApplication::primaryScreen();
  if (primary != nullptr) move(primary->geometry().topLeft() + rect.topLeft());
}

void DialogWindow::Appear() {
  if (!std::exchange(is_arranged_, true)) ArrangeControls();
  show();
  activateWindow();
}

void DialogWindow::RunUntilHidden() {
  if (!isVisible()) return;
  QEventLoop loop;
  connect(this, &DialogWindow::Hidden, &loop, &QEventLoop::quit);
  connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
  loop.exec();
}

QWidget& DialogWindow::ContainerOf(const Frame* frame) const {
  const auto found = containers_.find(frame);
  return found != containers_.end() ? *found->second : *client_;
}

void DialogWindow::AddControl(const Widget& control, QWidget& widget) {
  controls_.push_back({&control, &widget});
  widget.installEventFilter(this);
}

QMenuBar& DialogWindow::AddMenuBar() {
  menu_bar_ = new QMenuBar(this);
  // A desktop may keep menus elsewhere, where they would be out of place while a dialog is open.
  menu_bar_->setNativeMenuBar(false);
  layout()->setMenuBar(menu_bar_);
  return *menu_bar_;
}

void DialogWindow::CloseMenusSoon() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (QApplication::activePopupWidget() == nullptr) CloseMenus();
      },
      Qt::QueuedConnection);
}

void DialogWindow::CloseMenus() {
  if (std::exchange(menus_are_open_, false)) Q_EMIT MenusClosed();
}

// Escape.
void DialogWindow::reject() {
  if (cancel_button_ && cancel_button_->isEnabled()) cancel_button_->click();
}

// An access key that a menu and a control share opens the menu; Qt would go from the one to the other. And it
// presses a button at once, not after a while in which the window has become another.
bool DialogWindow::eventFilter(QObject* control, QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QDialog::eventFilter(control, event);
  const auto* const shortcut = static_cast<QShortcutEvent*>(event);
  auto* const button = qobject_cast<QAbstractButton*>(control);
  if (shortcut->isAmbiguous()) return OpenMenu(shortcut->key());
  if (button == nullptr) return QDialog::eventFilter(control, event);
  button->setFocus(Qt::ShortcutFocusReason);
  button->click();
  return true;
}

bool DialogWindow::OpenMenu(const QKeySequence& access_key) {
  if (menu_bar_ == nullptr) return false;
  const QList<QAction*> menus = menu_bar_->actions();
  const auto found = std::ranges::find_if(
      menus, [&access_key](const QAction* menu) { return QKeySequence::mnemonic(menu->text()) == access_key; });
  if (found == menus.end()) return false;
  menu_bar_->setActiveAction(*found);
  return true;
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Deliver([this] { events_.OnCloseRequested(); });
}

void DialogWindow::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) Q_EMIT Hidden();
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    Deliver([this] { events_.OnHelpRequested(); });
  } else {
    QDialog::keyPressEvent(event);
  }
}

// Labels lead to the control behind them, whose name they are for who can't see them. One without a text only shows a
// colour.
void DialogWindow::ArrangeControls() {
  std::erase_if(controls_, [](const Control& c) { return !c.widget || c.control->Design().tab_index < 0; });
  std::stable_sort(controls_.begin(), controls_.end(), [](const Control& a, const Control& b) {
    return a.control->Design().tab_index < b.control->Design().tab_index;
  });
  QWidget* last = nullptr;
  LabelWidget* label = nullptr;
  for (const Control& control : controls_) {
    QWidget* const widget = control.widget;
    auto* const found = qobject_cast<LabelWidget*>(widget);
    if (found != nullptr && !found->PlainText().isEmpty()) label = found;
    if (widget->focusPolicy() == Qt::NoFocus) continue;
    if (last != nullptr) setTabOrder(last, widget);
    if (last == nullptr) widget->setFocus();
    if (label != nullptr) label->LeadTo(*widget);
    if (widget->accessibleName().isEmpty()) widget->setAccessibleName(Caption(SpokenName(*control.control)));
    label = nullptr;
    last = widget;
  }
}

}  // namespace quorvale
