#pragma once

#include <memory>
#include <string>
#include <vector>

#include "toolkit/widget_peer.h"

namespace quorvale {

class Widget;

// Peers without a look. Controls hold their own state, so the peers only track the focus. As on any desktop, it moves
// from a control that is disabled or hidden to the next one in tab order.
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

  // The name of the control that has the focus; empty if none has.
  std::string focused;

  // Called by the peers of controls that the tab key visits.
  void Add(const Widget& control) { stops_.push_back(&control); }
  void Remove(const Widget& control) { std::erase(stops_, &control); }
  // Moves the focus from that control to the next one of its form.
  void PassFocusOn(const Widget& control);

 private:
  std::vector<const Widget*> stops_;
};

}  // namespace quorvale
