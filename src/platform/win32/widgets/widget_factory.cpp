#include "platform/win32/widgets/widget_factory.h"

#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/widgets/button_peers.h"
#include "platform/win32/widgets/dialog_window.h"
#include "platform/win32/widgets/entry_peers.h"
#include "platform/win32/widgets/label_peer.h"
#include "platform/win32/widgets/list_box_peer.h"
#include "platform/win32/widgets/menu_bar.h"
#include "platform/win32/widgets/panel_peers.h"

namespace quorvale {
namespace {

// Only dialogs have controls, so the cast is safe.
DialogWindow& Dialog(WindowPeer& window) {
  return static_cast<DialogWindow&>(static_cast<Win32WindowPeer&>(window).Window());
}

}  // namespace

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, Button& button) {
  return std::make_unique<ButtonControl>(Dialog(window), button);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, CheckBox& box) {
  return std::make_unique<MarkControl<CheckBox>>(Dialog(window), box, BS_CHECKBOX);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, DropDownList& list) {
  return std::make_unique<DropDownControl>(Dialog(window), list);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, Frame& frame) {
  return std::make_unique<FrameControl>(Dialog(window), frame);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, ImageView& view) {
  return std::make_unique<ImageViewControl>(Dialog(window), view);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, Label& label) {
  return std::make_unique<LabelControl>(Dialog(window), label);
}

std::unique_ptr<ListBoxPeer> Win32WidgetFactory::Make(WindowPeer& window, ListBox& list) {
  return std::make_unique<ListBoxControl>(Dialog(window), list);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, OptionButton& button) {
  return std::make_unique<MarkControl<OptionButton>>(Dialog(window), button, BS_RADIOBUTTON);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, Rule& rule) {
  return std::make_unique<RuleControl>(Dialog(window), rule);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, Slider& slider) {
  return std::make_unique<SliderControl>(Dialog(window), slider);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, TabStrip& strip) {
  return std::make_unique<TabStripControl>(Dialog(window), strip);
}

std::unique_ptr<WidgetPeer> Win32WidgetFactory::Make(WindowPeer& window, TextBox& box) {
  return std::make_unique<TextBoxControl>(Dialog(window), box);
}

std::unique_ptr<MenuBarPeer> Win32WidgetFactory::Make(WindowPeer& window, MenuBar& bar) {
  return std::make_unique<Win32MenuBar>(Dialog(window), bar);
}

}  // namespace quorvale
