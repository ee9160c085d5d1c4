#pragma once

#include <memory>

namespace quorvale {

class Button;
class CheckBox;
class DropDownList;
class Frame;
class ImageView;
class Label;
class ListBox;
class MenuBar;
class MenuItem;
class OptionButton;
class Rule;
class Slider;
class TabStrip;
class TextBox;
class WindowPeer;

// The aspect of a control that has changed.
enum class WidgetAspect { kPlace, kVisible, kEnabled, kCaption, kColour, kValue, kContents };

// The platform's side of a control. It reads the state from the control and reports the user's actions by the control's
// `User...` methods.
class WidgetPeer {
 public:
  virtual ~WidgetPeer() = default;
  // Reads `aspect` from the control again. Must not report this as an action of the user.
  virtual void Update(WidgetAspect aspect) = 0;
  virtual void TakeFocus() = 0;
  // Whether it gets the keys while its window is active.
  virtual bool HasFocus() const = 0;
};

// The platform's side of a list box; the items stay in the control, and the peer shows those in view.
class ListBoxPeer : public WidgetPeer {
 public:
  virtual void ItemsAdded(int first, int count) = 0;
  virtual void ItemsRemoved(int first, int count) = 0;
  virtual void ItemChanged(int index) = 0;
  virtual void SelectionChanged() = 0;
};

// The platform's side of a menu bar. It builds the menus from the tree of items when it is made.
class MenuBarPeer {
 public:
  virtual ~MenuBarPeer() = default;
  // The item's `Enabled` has changed.
  virtual void Update(const MenuItem& item) = 0;
};

// Creates peers, by one function per type of control. A peer starts with the control's current state; the control
// outlives it. Peers of frames are created before those of the controls on them.
class WidgetFactory {
 public:
  virtual ~WidgetFactory() = default;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Button& button) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, CheckBox& box) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, DropDownList& list) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Frame& frame) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, ImageView& view) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Label& label) = 0;
  virtual std::unique_ptr<ListBoxPeer> Make(WindowPeer& window, ListBox& list) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, OptionButton& button) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Rule& rule) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, Slider& slider) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, TabStrip& strip) = 0;
  virtual std::unique_ptr<WidgetPeer> Make(WindowPeer& window, TextBox& box) = 0;
  virtual std::unique_ptr<MenuBarPeer> Make(WindowPeer& window, MenuBar& bar) = 0;
};

}  // namespace quorvale
