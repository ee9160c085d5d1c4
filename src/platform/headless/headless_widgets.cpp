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
  FocusOnly(HeadlessWidgets& widgets, const Widget& control) : widgets_(widgets), control_(control) {
    if (control.IsTabStop()) widgets.Add(control);
  }
  ~FocusOnly() override { widgets_.Remove(control_); }
  FocusOnly(const FocusOnly&) = delete;
  FocusOnly& operator=(const FocusOnly&) = delete;

  void Update(WidgetAspect /*aspect*/) override {
    if (HasFocus() && !control_.CanTakeFocus()) widgets_.PassFocusOn(control_);
  }
  void TakeFocus() override { widgets_.focused = control_.Name(); }
  bool HasFocus() const override { return widgets_.focused == control_.Name(); }

 private:
  HeadlessWidgets& widgets_;
  const Widget& control_;
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

void HeadlessWidgets::PassFocusOn(const Widget& control) {
  const auto rank = [&control](const Widget* stop) {
    return std::pair(stop->Design().tab_index < control.Design().tab_index, stop->Design().tab_index);
  };
  const Widget* next = nullptr;
  for (const Widget* const stop : stops_) {
    if (&stop->Parent() != &control.Parent() || !stop->CanTakeFocus()) continue;
    if (next == nullptr || rank(stop) < rank(next)) next = stop;
  }
  focused = next != nullptr ? next->Name() : std::string();
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Button& button) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, button);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, CheckBox& box) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, box);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, DropDownList& list) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, list);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Frame& frame) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, frame);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, ImageView& view) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, view);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Label& label) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, label);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, OptionButton& button) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, button);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Rule& rule) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, rule);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, Slider& slider) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, slider);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, TabStrip& strip) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, strip);
}

std::unique_ptr<WidgetPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, TextBox& box) {
  return std::make_unique<FocusOnly<WidgetPeer>>(*this, box);
}

std::unique_ptr<ListBoxPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, ListBox& list) {
  return std::make_unique<SilentList>(*this, list);
}

std::unique_ptr<MenuBarPeer> HeadlessWidgets::Make(WindowPeer& /*window*/, MenuBar& /*bar*/) {
  return std::make_unique<SilentMenus>();
}

}  // namespace quorvale
