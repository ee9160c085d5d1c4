#pragma once

#include <array>

#include "show/show_form.h"
#include "toolkit/buttons.h"
#include "toolkit/common_dialog.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/message_hook.h"
#include "toolkit/panels.h"

namespace quorvale {

// The commands that edit the visible list: indices of their buttons.
inline constexpr int kAddFiles = 0;
inline constexpr int kAddDirectory = 1;
inline constexpr int kRemove = 2;
inline constexpr int kMoveUp = 3;
inline constexpr int kMoveDown = 4;

// The controls of the configuration window with their design properties. `frmConfig` adds the behaviour.
class ConfigControls : public ShowForm {
 public:
  Frame fraPlayList;
  OptionButton OptPicture;
  OptionButton OptSound;
  // Pictures and sounds, at the same place.
  std::array<ListBox, 2> lstList;
  std::array<Button, 5> cmdImages;
  Label lblPathLabel;
  Label lblPath;
  Button cmdOK;
  Button cmdCancel;
  // The drawing of a monitor; `PicBase` is its screen, with the preview.
  ImageView Image1;
  Rule Line1;
  MenuBar Menus;
  CommonDialog CD1;
  // Reports that a menu has closed.
  MessageHook Msghook1;

  ListBox& ListOnView() { return lstList.at(OptSound.Value() ? 1 : 0); }

 protected:
  explicit ConfigControls(Process& process);
};

}  // namespace quorvale
