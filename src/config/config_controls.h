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

// The commands that edit the list on view, by the index of their button.
inline constexpr int kAddFiles = 0;
inline constexpr int kAddDirectory = 1;
inline constexpr int kRemove = 2;
inline constexpr int kMoveUp = 3;
inline constexpr int kMoveDown = 4;

// The controls of the configuration window, as they stand before it is loaded. What they do is the matter of
// `frmConfig`.
class ConfigControls : public ShowForm {
 public:
  Frame fraPlayList;
  OptionButton OptPicture;
  OptionButton OptSound;
  // The pictures, and the sounds in the same place.
  std::array<ListBox, 2> lstList;
  std::array<Button, 5> cmdImages;
  Label lblPathLabel;
  Label lblPath;
  Button cmdOK;
  Button cmdCancel;
  // The monitor on which the show runs; `PicBase` is its screen.
  ImageView Image1;
  Rule Line1;
  MenuBar Menus;
  CommonDialog CD1;
  // Tells when a menu has closed.
  MessageHook Msghook1;

  ListBox& ListOnView() { return lstList.at(OptSound.Value() ? 1 : 0); }

 protected:
  explicit ConfigControls(Process& process);
};

}  // namespace quorvale
