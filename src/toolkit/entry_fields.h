#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/control.h"

namespace quorvale {

class TextBox : public Widget {
 public:
  // At most `max_length` characters; 0 is no limit.
  TextBox(Form& parent, WidgetDesign design, int max_length);

  // Called with a typed character's code before it is inserted. A handler can set it to 0 to reject it.
  std::function<void(int& code)> KeyPress;

  int MaxLength() const { return max_length_; }
  const std::string& Text() const { return text_; }
  // Cut at the limit.
  void SetText(std::string text);

  // The user typed a character. Returns its code, or 0 if it was rejected.
  int UserKeyPress(int code);
  // The user changed the text.
  void UserSetText(std::string text);

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  int max_length_;
  std::string text_;
};

// A list from which one item can be chosen, not edited.
class DropDownList : public Widget {
 public:
  DropDownList(Form& parent, WidgetDesign design, std::vector<std::string> items);

  // Called when the user has chosen an item.
  std::function<void()> Click;

  const std::vector<std::string>& Items() const { return items_; }
  // The chosen item's text, or empty when none is chosen.
  std::string Text() const;
  // Chooses the item of that text. Fails with kInvalidValue when there is none.
  void SetText(const std::string& text);
  // The chosen item from 0, or -1.
  int ListIndex() const { return index_; }

  // The user chose an item.
  void UserChoose(int index);

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  std::vector<std::string> items_;
  int index_ = -1;
};

class Slider : public Widget {
 public:
  Slider(Form& parent, WidgetDesign design, int least, int most);

  int Min() const { return least_; }
  int Max() const { return most_; }
  int Value() const { return value_; }
  // Fails with kInvalidValue outside the range.
  void SetValue(int value);
  // The user moved it.
  void UserSetValue(int value);

 protected:
  std::unique_ptr<WidgetPeer> MakePeer(WidgetFactory& factory) override;

 private:
  int least_;
  int most_;
  int value_;
};

}  // namespace quorvale
