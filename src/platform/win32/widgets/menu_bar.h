#pragma once

#include <memory>
#include <vector>

#include "platform/win32/windows_api.h"
#include "toolkit/menu.h"

namespace quorvale {

class DialogWindow;

// A Windows menu bar with the shortcut keys of its items.
class Win32MenuBar : public MenuBarPeer {
 public:
  // `dialog` and `bar` outlive it.
  Win32MenuBar(DialogWindow& dialog, MenuBar& bar);
  ~Win32MenuBar() override;
  Win32MenuBar(const Win32MenuBar&) = delete;
  Win32MenuBar& operator=(const Win32MenuBar&) = delete;

  void Update(const MenuItem& item) override;

  HMENU Menu() const { return menu_; }

  // Calls of the window: the user has entered or left the menus, and a menu is about to open.
  void SetOpen(bool open) { is_open_ = open; }
  void Opens(HMENU menu) const;
  // False if no item has this number.
  bool Choose(int id) const;
  // Handles a shortcut, or the access key of a menu; one that a control shares opens the menu. False for other keys.
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
  bool OpenMenu(HWND window, wchar_t access_key) const;

  DialogWindow& dialog_;
  HMENU menu_;
  HACCEL shortcuts_ = nullptr;
  // The command number of an item is kFirstId plus its index here.
  std::vector<Entry> entries_;
  bool is_open_ = false;
};

}  // namespace quorvale
