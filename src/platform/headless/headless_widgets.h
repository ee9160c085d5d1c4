#pragma once

#include <memory>
#include <string>
#include <vector>

#include "toolkit/widget_peer.h"

namespace quorvale {

class Widget;

// Controls without a look: they hold their state themselves, so that only the focus is left to keep. As on any desktop
// it leaves a control that is disabled or hidden for the next in tab order.
class HeadlessWidgets : public WidgetFactory {
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

  // The name of the control that has the focus; empty where none has.
  std::string focused;

  // The peers of controls in a tab order, while they are there.
  void Add(const Widget& control) { stops_.push_back(&control); }
  void Remove(const Widget& control) { std::erase(stops_, &control); }
  // Gives the focus of that control to the next one of its form.
  void PassFocusOn(const Widget& control);

 private:
  std::vector<const Widget*> stops_;
};

}  // namespace quorvale
