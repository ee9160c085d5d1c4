#pragma once

namespace quorvale {

class MenuBar;

// Adds the menus of the configuration window. The window sets the handlers.
void AddConfigMenus(MenuBar& bar);

}  // namespace quorvale
