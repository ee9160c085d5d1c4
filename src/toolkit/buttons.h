#pragma once

#include <functional>
#include <memory>

#include "toolkit/control.h"

namespace quorvale {

class Button : public Widget {
 public:
  using Widget::Widget;

  std::function<void()> Click;
  // Enter presses the form's default button, Escape its cancel button.
  bool is_default = false;
  bool is_cancel = false;

  // The user pressed it. Does nothing while it is disabled.
  void UserClick();

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;
};

// A radio button. At most one in a container is on.
class OptionButton : public Widget {
 public:
  using Widget::Widget;

  std::function<void()> Click;

  bool Value() const { return value_; }
  // Turning it on turns off the others in its container and raises `Click`.
  void SetValue(bool value);
  // The user turned it on.
  void UserClick();

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  bool value_ = false;
};

class CheckBox : public Widget {
 public:
  using Widget::Widget;

  std::function<void()> Click;

  // 0 or 1. A change raises `Click`; any other number fails with kInvalidValue.
  int Value() const { return value_; }
  void SetValue(int value);
  // The user turned it on or off.
  void UserClick();

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  int value_ = 0;
};

}  // namespace quorvale
