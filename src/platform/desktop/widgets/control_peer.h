#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/desktop/widgets/dialog_window.h"
#include "toolkit/widget.h"

namespace quorvale {

// What the widgets of all kinds share: place, visibility, whether they are enabled, the tool tip, the name for
// who can't see them and their place in the tab order.
class ControlPeer : public WidgetPeer {
 public:
  // `show` brings the widget's text and value up to date; it runs when one of them or the size has changed, and
  // the widget reports nothing meanwhile.
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
  // Gone when the window went first.
  QPointer<QWidget> widget_;
  std::function<void()> show_;
};

DialogWindow& WindowOf(WindowPeer& peer);

}  // namespace quorvale
