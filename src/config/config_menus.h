#pragma once

namespace quorvale {

class MenuBar;

// Adds the configuration window's menus; what their items do is up to the window.
void AddConfigMenus(MenuBar& bar);

}  // namespace quorvale
