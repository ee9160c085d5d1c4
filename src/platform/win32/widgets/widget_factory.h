#pragma once

#include "toolkit/widget_peer.h"

namespace quorvale {

// Makes peers that are Windows controls.
class Win32WidgetFactory : public WidgetFactory {
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

}  // namespace quorvale
