#pragma once

#include <memory>
#include <vector>

#include "platform/win32/windows_api.h"
#include "toolkit/menu.h"

namespace quorvale {

class DialogWindow;

// The system's menus and the keys that stand for their items.
class Win32MenuBar : public MenuBarPeer {
 public:
  // Both outlive it.
  Win32MenuBar(DialogWindow& dialog, MenuBar& bar);
  ~Win32MenuBar() override;
  Win32MenuBar(const Win32MenuBar&) = delete;
  Win32MenuBar& operator=(const Win32MenuBar&) = delete;

  void Update(const MenuItem& item) override;

  HMENU Menu() const { return menu_; }

  // For the window. The user has gone into the menus, or out of them.
  void SetOpen(bool open) { is_open_ = open; }
  void Opens(HMENU menu) const;
  // False when no item has that number.
  bool Choose(int id) const;
  bool TranslateKey(HWND window, MSG& message) const;

 private:
  struct Entry {
    MenuItem* item;
    HMENU parent;
    HMENU submenu;  // null for a command
    UINT position;
  };

  void Build(HMENU menu, const std::vector<std::unique_ptr<MenuItem>>& items);
  void MakeShortcuts();

  DialogWindow& dialog_;
  HMENU menu_;
  HACCEL shortcuts_ = nullptr;
  // The number of an item is its place here.
  std::vector<Entry> entries_;
  bool is_open_ = false;
};

}  // namespace quorvale
