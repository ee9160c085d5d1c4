#include "platform/desktop/widgets/dialog_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/pixels.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/label_widget.h"
#include "toolkit/panels.h"

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
  // Some desktops show menus outside the window, which does not suit a dialog.
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

// An access key that a menu and a control share opens the menu; Qt would move between the two. A button is clicked at
// once; Qt would do so after a delay, in which another window may have come.
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

// A label's access key leads to the control after it in the tab order. A label without a text only shows a colour.
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
    label = nullptr;
    last = widget;
  }
}

void DialogPeer::SetVisible(bool visible) {
  if (visible == window_.isVisible()) return;
  if (visible) {
    window_.Appear();
  } else {
    window_.hide();
  }
}

void DialogPeer::SetIcon(const Artwork& icon) {
  QIcon sizes;
  for (const float scale : {0.5F, 1.0F, 2.0F, 4.0F}) {
    if (icon) sizes.addPixmap(QPixmap::fromImage(ToImage(icon, scale)));
  }
  window_.setWindowIcon(sizes);
}

}  // namespace quorvale
