#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "toolkit/control.h"
#include "toolkit/widget_peer.h"

namespace quorvale {

class MenuBar;

// One item of a menu: a command, a submenu, or a line between items (caption "-").
class MenuItem {
 public:
  MenuItem(MenuBar& bar, std::string name, std::string caption, std::string shortcut);
  MenuItem(const MenuItem&) = delete;
  MenuItem& operator=(const MenuItem&) = delete;

  // The user chose it; of a top menu: it opens.
  std::function<void()> Click;

  const std::string& Name() const { return name_; }
  // An "&" marks the access key.
  const std::string& Caption() const { return caption_; }
  // As in "Ctrl+N"; empty is none.
  const std::string& Shortcut() const { return shortcut_; }
  const std::vector<std::unique_ptr<MenuItem>>& Items() const { return items_; }
  bool IsLine() const { return caption_ == "-"; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  // Adds an item at the end of this one's submenu.
  MenuItem& Add(std::string name, std::string caption, std::string shortcut = "");

  // The user chose it, by mouse, key or shortcut; of a top menu: it opens. Does nothing while disabled.
  void UserClick();

 private:
  MenuBar& bar_;
  std::string name_;
  std::string caption_;
  std::string shortcut_;
  bool enabled_ = true;
  std::vector<std::unique_ptr<MenuItem>> items_;
};

// A form's menu bar. Its items are added in the form's constructor.
class MenuBar : public Control {
 public:
  MenuBar(Form& parent, std::string name);

  const std::vector<std::unique_ptr<MenuItem>>& Menus() const { return menus_; }
  MenuItem& Add(std::string name, std::string caption);
  // Fails with kNoSuchEntry.
  MenuItem& Item(const std::string& item_name) const;

 protected:
  void CreatePeer() override;
  void ReleasePeer() override;

 private:
  friend class MenuItem;
  void Raise(const std::function<void()>& handler);

  std::vector<std::unique_ptr<MenuItem>> menus_;
  std::unique_ptr<MenuBarPeer> peer_;
};

}  // namespace quorvale
