#pragma once

#include <array>

#include "show/show_form.h"
#include "toolkit/buttons.h"
#include "toolkit/dialogs.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/nonvisual_controls.h"
#include "toolkit/panels.h"

namespace quorvale {

// The commands that edit the visible list: indices of their buttons.
inline constexpr int kAddFiles = 0;
inline constexpr int kAddDirectory = 1;
inline constexpr int kRemove = 2;
inline constexpr int kMoveUp = 3;
inline constexpr int kMoveDown = 4;

// The controls and menus of the configuration window with their design properties. `ConfigForm` adds the behaviour.
class ConfigControls : public ShowForm {
 public:
  Frame list_frame;
  OptionButton view_pictures;
  OptionButton view_sounds;
  // Pictures and sounds, at the same place.
  std::array<ListBox, 2> lists;
  std::array<Button, 5> list_buttons;
  Label path_title;
  Label path_line;
  Button ok;
  Button cancel;
  // The drawing of a monitor; `PicBase` is its screen, with the preview.
  ImageView monitor;
  Rule menu_line;
  MenuBar menus;
  CommonDialog file_dialog;
  // Reports that a menu has closed.
  MessageHook menu_hook;

  ListBox& VisibleList() { return lists.at(view_sounds.Value() ? 1 : 0); }

 protected:
  explicit ConfigControls(Process& process);

 private:
  void AddMenus();
};

}  // namespace quorvale
