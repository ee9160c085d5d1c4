#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/desktop/widgets/dialog_window.h"
#include "toolkit/control.h"
#include "toolkit/widget_peer.h"

namespace quorvale {

// Makes a Qt widget for each control of the toolkit. Each family of controls defines its `Make` in a file of its own.
class QtWidgets : public WidgetFactory {
 public:
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Button& button) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, CheckBox& box) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, DropDownList& list) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Frame& frame) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, ImageView& view) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Label& label) override;
  std::unique_ptr<ListBoxPeer> Make(WindowPeer& window, ListBox& list) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, OptionButton& button) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Rule& rule) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Slider& slider) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, TabStrip& strip) override;
  std::unique_ptr<WidgetPeer> Make(WindowPeer& window, TextBox& box) override;
  std::unique_ptr<MenuBarPeer> Make(WindowPeer& window, MenuBar& bar) override;
};

// What widgets of all kinds share: place, visibility, enabled state, tool tip, accessible name and tab order.
class ControlPeer : public WidgetPeer {
 public:
  // `show` updates the widget's text and value from the control. It runs when one of them or the size has changed; the
  // widget's signals are blocked meanwhile.
  ControlPeer(WindowPeer& window, Widget& control, std::unique_ptr<QWidget> widget, std::function<void()> show);
  ~ControlPeer() override { delete widget_; }
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;

  void Update(WidgetAspect aspect) override;
  void TakeFocus() override {
    if (widget_) widget_->setFocus();
  }
  bool HasFocus() const override { return widget_ && widget_->window()->focusWidget() == widget_; }

 private:
  void Show();

  Widget& control_;
  // Null if the window was destroyed first.
  QPointer<QWidget> widget_;
  std::function<void()> show_;
};

DialogWindow& WindowOf(WindowPeer& peer);

}  // namespace quorvale
