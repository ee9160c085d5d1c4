#include "toolkit/entry_fields.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "toolkit/form.h"

namespace quorvale {

TextBox::TextBox(Form& parent, WidgetDesign design, int max_length)
    : Widget(parent, std::move(design)), max_length_(max_length) {}

void TextBox::SetText(std::string text) {
  text_ = max_length_ > 0 ? Left(text, static_cast<std::size_t>(max_length_)) : std::move(text);
  UpdatePeer(WidgetAspect::kValue);
}

int TextBox::UserKeyPress(int code) {
  if (KeyPress) Raise([this, &code] { KeyPress(code); });
  return code;
}

void TextBox::UserSetText(std::string text) { text_ = std::move(text); }

std::unique_ptr<WidgetPeer> TextBox::MakePeer(WidgetFactory& factory) { return factory.Make(Parent().Window(), *this); }

DropDownList::DropDownList(Form& parent, WidgetDesign design, std::vector<std::string> items)
    : Widget(parent, std::move(design)), items_(std::move(items)) {}

std::string DropDownList::Text() const { return index_ < 0 ? std::string() : items_[static_cast<std::size_t>(index_)]; }

void DropDownList::SetText(const std::string& text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  if (found == items_.end()) throw Failure(FailureNumber::kInvalidValue, "No such item: " + text, Name());
  index_ = static_cast<int>(found - items_.begin());
  UpdatePeer(WidgetAspect::kValue);
}

void DropDownList::UserChoose(int index) {
  index_ = std::clamp(index, -1, static_cast<int>(items_.size()) - 1);
  Raise(Click);
}

std::unique_ptr<WidgetPeer> DropDownList::MakePeer(WidgetFactory& factory) {
  return factory.Make(Parent().Window(), *this);
}

Slider::Slider(Form& parent, WidgetDesign design, int least, int most)
    : Widget(parent, std::move(design)), least_(least), most_(most), value_(least) {}

void Slider::SetValue(int value) {
  if (value < least_ || value > most_) throw Failure(FailureNumber::kInvalidValue, "Out of the slider's range", Name());
  value_ = value;
  UpdatePeer(WidgetAspect::kValue);
}

void Slider::UserSetValue(int value) { value_ = std::clamp(value, least_, most_); }

std::unique_ptr<WidgetPeer> Slider::MakePeer(WidgetFactory& factory) { return factory.Make(Parent().Window(), *this); }

}  // namespace quorvale
