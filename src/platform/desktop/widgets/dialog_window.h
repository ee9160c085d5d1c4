#pragma once

#include <QDialog>
#include <QKeySequence>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <map>
#include <string>
#include <vector>

#include "toolkit/platform.h"

namespace quorvale {

class Frame;
class Widget;

// A form's window with controls: a menu bar, if the form has one, above an area of fixed size. It is modal: while it is
// open, the program's other windows except those that it has opened take no input.
class DialogWindow : public QDialog {
  Q_OBJECT

 public:
  explicit DialogWindow(WindowEvents& events);

  // In layout pixels, from the corner of the primary monitor.
  void SetBounds(const PixelRect& bounds);
  void Appear();
  // Runs events until the window is hidden.
  void RunUntilHidden();

  // The widget that holds the controls of that frame, or for null those of the form.
  QWidget& ContainerOf(const Frame* frame) const;
  void AddContainer(const Frame& frame, QWidget& widget) { containers_[&frame] = &widget; }

  // The tab order is set when the window appears.
  void AddControl(const Widget& control, QWidget& widget);
  // Escape presses that button.
  void SetCancelButton(QPushButton& button) { cancel_button_ = &button; }

  QMenuBar& AddMenuBar();
  void SetMenusOpen() { menus_are_open_ = true; }
  // A menu has closed. Reports that all have, unless another one is or becomes open.
  void CloseMenusSoon();
  // A menu's command is about to run, and the menus count as closed.
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
  // False if no menu has that key.
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

class DialogPeer : public WindowPeer {
 public:
  explicit DialogPeer(WindowEvents& events) : window_(events) {}

  WindowHandle Handle() const override { return static_cast<WindowHandle>(window_.winId()); }
  void SetCaption(const std::string& caption) override { window_.setWindowTitle(QString::fromStdString(caption)); }
  void SetBounds(const PixelRect& bounds) override { window_.SetBounds(bounds); }
  void SetVisible(bool visible) override;
  void SetIcon(const Artwork& icon) override;

  DialogWindow& Window() { return window_; }

 private:
  DialogWindow window_;
};

}  // namespace quorvale
