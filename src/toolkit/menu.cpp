#include "toolkit/menu.h"

#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "toolkit/form.h"

namespace quorvale {
namespace {

MenuItem* FindItem(const std::vector<std::unique_ptr<MenuItem>>& items, const std::string& name) {
  for (const auto& item : items) {
    if (EqualsIgnoringCase(item->Name(), name)) return item.get();
    if (MenuItem* const below = FindItem(item->Items(), name)) return below;
  }
  return nullptr;
}

}  // namespace

MenuItem::MenuItem(MenuBar& bar, std::string name, std::string caption, std::string shortcut)
    : bar_(bar), name_(std::move(name)), caption_(std::move(caption)), shortcut_(std::move(shortcut)) {}

void MenuItem::SetEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled && bar_.peer_) bar_.peer_->Update(*this);
}

MenuItem& MenuItem::Add(std::string name, std::string caption, std::string shortcut) {
  items_.push_back(std::make_unique<MenuItem>(bar_, std::move(name), std::move(caption), std::move(shortcut)));
  return *items_.back();
}

void MenuItem::UserClick() {
  if (enabled_) bar_.Raise(Click);
}

MenuBar::MenuBar(Form& parent, std::string name) : Control(parent, std::move(name)) {}

MenuItem& MenuBar::Add(std::string name, std::string caption) {
  menus_.push_back(std::make_unique<MenuItem>(*this, std::move(name), std::move(caption), ""));
  return *menus_.back();
}

MenuItem& MenuBar::Item(const std::string& item_name) const {
  MenuItem* const item = FindItem(menus_, item_name);
  if (item == nullptr) throw Failure(FailureNumber::kNoSuchEntry, "No menu item " + item_name, Name());
  return *item;
}

void MenuBar::CreatePeer() { peer_ = App().GetPlatform().Widgets().Make(Parent().Window(), *this); }

void MenuBar::ReleasePeer() {
  if (peer_) App().KeepUntilIdle(std::move(peer_));
}

void MenuBar::Raise(const std::function<void()>& handler) {
  if (!handler || !Parent().IsLoaded()) return;
  App().Dispatch([handler, form = Parent().shared_from_this()] { handler(); });
}

}  // namespace quorvale
