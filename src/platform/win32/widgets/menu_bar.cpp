#include "platform/win32/widgets/menu_bar.h"

#include <algorithm>
#include <string_view>

#include "platform/win32/system/system_text.h"
#include "platform/win32/widgets/dialog_keyboard.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

// Lower numbers are those of dialog buttons: IDOK, IDCANCEL.
constexpr int kFirstId = 100;

UINT StateOf(const MenuItem& item) { return item.Enabled() ? MF_ENABLED : MF_GRAYED; }

std::wstring TextOf(const MenuItem& item) {
  return ToWide(item.Shortcut().empty() ? item.Caption() : item.Caption() + '\t' + item.Shortcut());
}

// Removes the modifier and its plus sign from the start of `shortcut`. False if it is not there.
bool RemoveModifier(std::string_view& shortcut, std::string_view name) {
  if (!shortcut.starts_with(name) || shortcut.size() <= name.size() || shortcut[name.size()] != '+') return false;
  shortcut.remove_prefix(name.size() + 1);
  return true;
}

WORD KeyOf(std::string_view name) {
  if (name == "Del") return VK_DELETE;
  if (name == "Ins") return VK_INSERT;
  if (name.size() == 1) return static_cast<WORD>(name[0]);
  if (name[0] != 'F') return 0;
  int number = 0;
  for (const char digit : name.substr(1)) number = number * 10 + (digit - '0');
  return static_cast<WORD>(VK_F1 + number - 1);
}

// Parses a text such as "Ctrl+N".
ACCEL ParseShortcut(std::string_view shortcut, int id) {
  ACCEL key{};
  key.fVirt = FVIRTKEY;
  if (RemoveModifier(shortcut, "Ctrl")) key.fVirt |= FCONTROL;
  if (RemoveModifier(shortcut, "Shift")) key.fVirt |= FSHIFT;
  key.key = KeyOf(shortcut);
  key.cmd = static_cast<WORD>(id);
  return key;
}

}  // namespace

Win32MenuBar::Win32MenuBar(DialogWindow& dialog, MenuBar& bar) : dialog_(dialog), menu_(CreateMenu()) {
  Build(menu_, bar.Menus());
  MakeShortcuts();
  dialog.SetMenuBar(this);
}

Win32MenuBar::~Win32MenuBar() {
  dialog_.SetMenuBar(nullptr);
  DestroyMenu(menu_);
  if (shortcuts_ != nullptr) DestroyAcceleratorTable(shortcuts_);
}

void Win32MenuBar::Update(const MenuItem& item) {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.item == &item; });
  if (found == entries_.end()) return;
  EnableMenuItem(found->parent, found->position, MF_BYPOSITION | StateOf(item));
  if (found->parent == menu_) DrawMenuBar(dialog_.Window());
}

// The system sends this message for shortcuts too, whose menu does not open.
void Win32MenuBar::Opens(HMENU menu) const {
  if (!is_open_) return;
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return entry.submenu == menu && entry.parent == menu_; });
  if (found != entries_.end()) found->item->UserClick();
}

bool Win32MenuBar::Choose(int id) const {
  if (id < kFirstId || id >= kFirstId + static_cast<int>(entries_.size())) return false;
  entries_[static_cast<std::size_t>(id - kFirstId)].item->UserClick();
  return true;
}

bool Win32MenuBar::TranslateKey(HWND window, MSG& message) const {
  if (shortcuts_ != nullptr && TranslateAcceleratorW(window, shortcuts_, &message) != 0) return true;
  return message.message == WM_SYSCHAR && OpenMenu(window, static_cast<wchar_t>(message.wParam));
}

bool Win32MenuBar::OpenMenu(HWND window, wchar_t access_key) const {
  const bool is_there = std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.parent == menu_ && IsAccessKeyOf(entry.item->Caption(), access_key);
  });
  if (is_there) SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, access_key);
  return is_there;
}

void Win32MenuBar::Build(HMENU menu, const std::vector<std::unique_ptr<MenuItem>>& items) {
  for (const auto& item : items) {
    if (item->IsLine()) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    const HMENU submenu = item->Items().empty() ? nullptr : CreatePopupMenu();
    const UINT_PTR id = submenu != nullptr ? reinterpret_cast<UINT_PTR>(submenu) : kFirstId + entries_.size();
    entries_.push_back({item.get(), menu, submenu, static_cast<UINT>(GetMenuItemCount(menu))});
    AppendMenuW(menu, (submenu != nullptr ? MF_POPUP : MF_STRING) | StateOf(*item), id, TextOf(*item).c_str());
    if (submenu != nullptr) Build(submenu, item->Items());
  }
}

void Win32MenuBar::MakeShortcuts() {
  std::vector<ACCEL> keys;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const std::string& shortcut = entries_[i].item->Shortcut();
    if (!shortcut.empty()) keys.push_back(ParseShortcut(shortcut, kFirstId + static_cast<int>(i)));
  }
  if (!keys.empty()) shortcuts_ = CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace quorvale
