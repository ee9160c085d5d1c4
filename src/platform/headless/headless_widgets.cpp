#include "platform/headless/headless_widgets.h"

#include <utility>

#include "toolkit/buttons.h"
#include "toolkit/entry_fields.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/panels.h"

namespace quorvale {
namespace {

template <typename Interface>
class FocusOnly : public Interface {
 public:
  FocusOnly(HeadlessWidgets& widgets, std::string name) : widgets_(widgets), name_(std::move(name)) {}

  void Update(WidgetAspect /*aspect*/) override {}
  void TakeFocus() override { widgets_.focused = name_; }

 private:
  HeadlessWidgets& widgets_;
  std::string name_;
};

class SilentList : public FocusOnly<ListBoxPeer> {
 public:
  using FocusOnly::FocusOnly;

  void ItemsAdded(int /*first*/, int /*count*/) override {}
  void ItemsRemoved(int /*first*/, int /*count*/) override {}
  void ItemChanged(int /*index*/) override {}
  void SelectionChanged() override {}
};

class SilentMenus : public MenuBarPeer {
 public:
  void Update(const MenuItem& /*item*/) override {}
};

}  // namespace

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Button& button) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, button.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, CheckBox& box) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, box.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, DropDownList& list) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, list.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Frame& frame) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, frame.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, ImageView& view) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, view.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Label& label) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, label.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, OptionButton& button) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, button.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Rule& rule) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, rule.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Slider& slider) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, slider.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, TabStrip& strip) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, strip.Name());
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, TextBox& box) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, box.Name());
}

std::unique_ptr<ListBoxPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, ListBox& list) {
  return std::make_unique<SilentList>(*this, list.Name());
}

std::unique_ptr<MenuBarPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, MenuBar& /*bar*/) {
  return std::make_unique<SilentMenus>();
}

}  // namespace quorvale
