#include "toolkit/buttons.h"

#include <utility>

#include "base/failure.h"
#include "toolkit/form.h"

namespace quorvale {

void Button::UserClick() {
  if (Enabled()) Raise(Click);
}

std::unique_ptr<WidgetPeer> Button::MakePeer(WidgetFactory& factory) { return factory.Make(Parent().Window(), *this); }

void OptionButton::SetValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  UpdatePeer(WidgetAspect::kValue);
  if (!value) return;
  Parent().ForEach<OptionButton>([this](OptionButton& other) {
    if (&other != this && other.Design().container == Design().container) other.SetValue(false);
  });
  Raise(Click);
}

void OptionButton::UserClick() {
  if (Enabled()) SetValue(true);
}

std::unique_ptr<WidgetPeer> OptionButton::MakePeer(WidgetFactory& factory) {
  return factory.Make(Parent().Window(), *this);
}

void CheckBox::SetValue(int value) {
  if (value != 0 && value != 1) throw Failure(FailureNumber::kInvalidValue, "A check box holds 0 or 1", Name());
  if (std::exchange(value_, value) == value) return;
  UpdatePeer(WidgetAspect::kValue);
  Raise(Click);
}

void CheckBox::UserClick() {
  if (Enabled()) SetValue(1 - value_);
}

std::unique_ptr<WidgetPeer> CheckBox::MakePeer(WidgetFactory& factory) {
  return factory.Make(Parent().Window(), *this);
}

}  // namespace quorvale
