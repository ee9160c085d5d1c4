#include "config/config_controls.h"

#include "config/config_menus.h"
#include "config/monitor_artwork.h"

namespace quorvale {
namespace {

constexpr float kScreenFontPoints = 4.2F;
constexpr Colour kRuleColour = 0x808080;

// Inside the frame and the menu bar, in twips.
constexpr TwipSize kClientSize = {5535, 6615};

constexpr char kPicturesCaption[] = "&Picture Files";
constexpr char kSoundsCaption[] = "&Sound Files";
constexpr char kListTip[] = "Pictures or sound files/directories that will play when screen saver is active.";

constexpr TwipRect kListPlace = {120, 600, 3492, 1968};

}  // namespace

ConfigControls::ConfigControls(Process& process)
    : ShowForm(process, "frmConfig", WindowKind::kDialog, "Screen Saver Properties",
               {"Small Fonts", kScreenFontPoints}),
      fraPlayList(*this, {.name = "fraPlayList", .caption = "Play List", .place = {120, 2520, 5292, 3492}}, true),
      OptPicture(*this, {.name = "OptPicture",
                         .caption = kPicturesCaption,
                         .place = {120, 240, 1212, 252},
                         .tool_tip = "Display the list of pictures that will be displayed in your screen saver.",
                         .tab_index = 0,
                         .container = &fraPlayList}),
      OptSound(*this, {.name = "OptSound",
                       .caption = kSoundsCaption,
                       .place = {1440, 240, 1212, 252},
                       .tool_tip = "Display the list of sounds that will be played in your screen saver.",
                       .tab_index = 1,
                       .container = &fraPlayList}),
      // A list shows no caption, but screen readers speak it.
      lstList{{{*this,
                {.name = "lstList(0)",
                 .caption = kPicturesCaption,
                 .place = kListPlace,
                 .tool_tip = kListTip,
                 .tab_index = 2,
                 .container = &fraPlayList}},
               {*this,
                {.name = "lstList(1)",
                 .caption = kSoundsCaption,
                 .place = kListPlace,
                 .tool_tip = kListTip,
                 .tab_index = 3,
                 .container = &fraPlayList,
                 .visible = false}}}},
      cmdImages{{{*this,
                  {.name = "cmdImages(0)",
                   .caption = "Add &File(s)...",
                   .place = {3720, 600, 1452, 372},
                   .tool_tip = "Offers a dialog for selecting one or more files to add to the Picture or Sound list.",
                   .tab_index = 4,
                   .container = &fraPlayList}},
                 {*this,
                  {.name = "cmdImages(1)",
                   .caption = "Add Direc&tory...",
                   .place = {3720, 1080, 1452, 372},
                   .tool_tip = "Offers a dialog for adding an entire directory to the Picture or Sound list.",
                   .tab_index = 10,
                   .container = &fraPlayList}},
                 {*this,
                  {.name = "cmdImages(2)",
                   .caption = "&Remove",
                   .place = {3720, 1560, 1452, 372},
                   .tool_tip = "Removes currently selected item(s) from the Play List.",
                   .tab_index = 5,
                   .container = &fraPlayList}},
                 {*this,
                  {.name = "cmdImages(3)",
                   .caption = "&Up",
                   .place = {3720, 2160, 732, 372},
                   .tool_tip = "Moves currently selected item up one position in the Play List.",
                   .tab_index = 6,
                   .container = &fraPlayList}},
                 {*this,
                  {.name = "cmdImages(4)",
                   .caption = "&Down",
                   .place = {4440, 2160, 732, 372},
                   .tool_tip = "Moves currently selected item down one position in the Play List.",
                   .tab_index = 7,
                   .container = &fraPlayList}}}},
      lblPathLabel(
          *this,
          {.name = "lblPathLabel", .caption = "File Path", .place = {120, 2640, 852, 252}, .container = &fraPlayList}),
      lblPath(*this, {.name = "lblPath",
                      .place = {120, 2880, 4452, 492},
                      .tool_tip = "Displays the entire path of selected item in Play List.",
                      .container = &fraPlayList}),
      cmdOK(*this, {.name = "cmdOK",
                    .caption = "OK",
                    .place = {2880, 6120, 1200, 372},
                    .tool_tip = "Save Properties.",
                    .tab_index = 8}),
      cmdCancel(*this, {.name = "cmdCancel",
                        .caption = "&Cancel",
                        .place = {4200, 6120, 1200, 372},
                        .tool_tip = "Close and do not save the Properties.",
                        .tab_index = 9}),
      Image1(*this, {.name = "Image1", .place = {1350, 45, 2835, 2610}}, nullptr),
      Line1(*this, {.name = "Line1", .place = {0, 0, 5520, 15}}, kRuleColour),
      Menus(*this, "Menus"),
      CD1(*this, "CD1"),
      Msghook1(*this, "Msghook1") {
  OptPicture.SetValue(true);
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  AddConfigMenus(Menus);
  SetIcon(&ConfigIcon);
  SetClientSize(kClientSize.width, kClientSize.height);
}

}  // namespace quorvale
