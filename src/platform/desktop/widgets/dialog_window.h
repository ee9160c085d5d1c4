#pragma once

#include <QDialog>
#include <QKeySequence>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <map>
#include <vector>

#include "toolkit/platform.h"

namespace quorvale {

class Frame;
class Widget;

// A form's window with controls: a menu bar, if it has one, above an area of fixed size. It is modal: while it
// is open the program's other windows, those it has opened itself apart, take no input.
class DialogWindow : public QDialog {
  Q_OBJECT

 public:
  explicit DialogWindow(WindowEvents& events);

  // In the layout's pixels, from the corner of the primary monitor.
  void SetBounds(const PixelRect& bounds);
  void Appear();
  // Runs events until the window is hidden.
  void RunUntilHidden();

  // What the controls of that frame lie on; null is the form itself.
  QWidget& ContainerOf(const Frame* frame) const;
  void AddContainer(const Frame& frame, QWidget& widget) { containers_[&frame] = &widget; }

  // Gives the widget its place in the tab order, counted when the window appears.
  void AddControl(const Widget& control, QWidget& widget);
  // Escape presses that button.
  void SetCancelButton(QPushButton& button) { cancel_button_ = &button; }

  QMenuBar& AddMenuBar();
  void NoteMenuOpened() { menus_are_open_ = true; }
  // The menus have closed, unless another one opens or is open.
  void CloseMenusSoon();
  // A command of a menu is about to run, so that its menu is no longer open.
  void CloseMenus();

  void reject() override;
  bool eventFilter(QObject* control, QEvent* event) override;

 Q_SIGNALS:
  void MenusClosed();
  void Hidden();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Control {
    const Widget* control = nullptr;
    QPointer<QWidget> widget;
  };

  void ArrangeControls();
  // False when no menu has that key.
  bool OpenMenu(const QKeySequence& access_key);

  WindowEvents& events_;
  QWidget* client_;
  std::map<const Frame*, QWidget*> containers_;
  std::vector<Control> controls_;
  QPointer<QPushButton> cancel_button_;
  QMenuBar* menu_bar_ = nullptr;
  bool menus_are_open_ = false;
  bool is_arranged_ = false;
};

}  // namespace quorvale
