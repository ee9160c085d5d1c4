#include "config/config_controls.h"

#include "base/strings.h"
#include "config/artwork.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {
namespace {

namespace config_texts = strings::configuration;
namespace items = strings::menus;

constexpr float kScreenFontPoints = 4.2F;
constexpr Colour kRuleColour = 0x808080;
constexpr TwipSize kConfigSize = {5535, 6615};
constexpr TwipRect kListPlace = {120, 600, 3492, 1968};

// A control on the frame of the lists.
WidgetDesign OnFrame(Frame& frame, const char* name, const strings::ControlText& text, const TwipRect& place,
                     int tab_index = -1) {
  return {.name = name,
          .caption = text.caption,
          .place = place,
          .tool_tip = text.tip,
          .tab_index = tab_index,
          .container = &frame};
}

// A list shows no caption, nor does a picture, but screen readers speak it.
WidgetDesign ListDesign(Frame& frame, const char* name, const char* caption, int tab_index, bool visible) {
  WidgetDesign design = OnFrame(frame, name, {"", config_texts::kListTip}, kListPlace, tab_index);
  design.caption = PlainCaption(caption);
  design.visible = visible;
  return design;
}

struct MenuRow {
  std::size_t depth = 0;  // 0 is a top menu; the parent is the last row above with a depth one less
  const char* name = "";
  const char* caption = "";
  const char* shortcut = "";
};

constexpr std::size_t kMostDepth = 3;
constexpr char kLine[] = "-";

constexpr MenuRow kMenuRows[] = {
    {0, "mnuFile", items::kFile},
    {1, "mnuNew", items::kNew, "Ctrl+N"},
    {1, "mnuOpen", items::kOpen, "Ctrl+O"},
    {1, "mnuSave", items::kSave, "Ctrl+S"},
    {1, "null6", kLine},
    {1, "mnuSaveAs", items::kSaveAs},
    {1, "mnuMergeList", items::kMerge},
    {1, "mnunull", kLine},
    {1, "mnuExit", items::kExit},
    {0, "mnuPlayList", items::kPlayList},
    {1, "mnuAddFiles", items::kAddFiles},
    {1, "mnuAddDir", items::kAddDirectory},
    {1, "mnuRemove", items::kRemove},
    {1, "mnuNull1", kLine},
    {1, "mnuMoveUp", items::kMoveUp},
    {1, "mnuMoveDown", items::kMoveDown},
    {1, "mnuNull2", kLine},
    {1, "mnuView", items::kView},
    {2, "mnuViewPics", items::kViewPictures},
    {2, "mnuViewSounds", items::kViewSounds},
    {1, "mnuNull3", kLine},
    {1, "mnuOptions", items::kOptions},
    {0, "mnuHelp", items::kHelp},
    {1, "mnuHelpContents", items::kHelpContents},
    {1, "mnuHelpSearchForHelpOn", items::kHelpSearch},
    {1, "mnunull5", kLine},
    {1, "mnuHelpAbout", items::kAbout},
};

}  // namespace

ConfigControls::ConfigControls(Process& process)
    : ShowForm(process, "frmConfig", WindowKind::kDialog, config_texts::kTitle, {"Small Fonts", kScreenFontPoints}),
      list_frame(*this, {.name = "fraPlayList", .caption = config_texts::kPlayList, .place = {120, 2520, 5292, 3492}},
                 true),
      view_pictures(*this, OnFrame(list_frame, "OptPicture", config_texts::kViewPictures, {120, 240, 1212, 252}, 0)),
      view_sounds(*this, OnFrame(list_frame, "OptSound", config_texts::kViewSounds, {1440, 240, 1212, 252}, 1)),
      lists{{{*this, ListDesign(list_frame, "lstList(0)", config_texts::kViewPictures.caption, 2, true)},
             {*this, ListDesign(list_frame, "lstList(1)", config_texts::kViewSounds.caption, 3, false)}}},
      list_buttons{{
          {*this, OnFrame(list_frame, "cmdImages(0)", config_texts::kAddFiles, {3720, 600, 1452, 372}, 4)},
          {*this, OnFrame(list_frame, "cmdImages(1)", config_texts::kAddDirectory, {3720, 1080, 1452, 372}, 10)},
          {*this, OnFrame(list_frame, "cmdImages(2)", config_texts::kRemove, {3720, 1560, 1452, 372}, 5)},
          {*this, OnFrame(list_frame, "cmdImages(3)", config_texts::kMoveUp, {3720, 2160, 732, 372}, 6)},
          {*this, OnFrame(list_frame, "cmdImages(4)", config_texts::kMoveDown, {4440, 2160, 732, 372}, 7)},
      }},
      path_title(*this, OnFrame(list_frame, "lblPathLabel", {config_texts::kPathTitle}, {120, 2640, 852, 252}, 11)),
      path_line(*this, OnFrame(list_frame, "lblPath", {"", config_texts::kPathTip}, {120, 2880, 4452, 492}, 12)),
      ok(*this, {.name = "cmdOK",
                 .caption = config_texts::kOk.caption,
                 .place = {2880, 6120, 1200, 372},
                 .tool_tip = config_texts::kOk.tip,
                 .tab_index = 8}),
      cancel(*this, {.name = "cmdCancel",
                     .caption = config_texts::kCancel.caption,
                     .place = {4200, 6120, 1200, 372},
                     .tool_tip = config_texts::kCancel.tip,
                     .tab_index = 9}),
      monitor(*this, {.name = "Image1", .caption = config_texts::kPreview, .place = {1350, 45, 2835, 2610}}, nullptr),
      menu_line(*this, {.name = "Line1", .place = {0, 0, 5520, 15}}, kRuleColour),
      menus(*this, "Menus"),
      file_dialog(*this, "CD1"),
      menu_hook(*this, "Msghook1") {
  view_pictures.SetValue(true);
  ok.is_default = true;
  cancel.is_cancel = true;
  AddMenus();
  SetIcon(&ConfigIcon);
  SetClientSize(kConfigSize.width, kConfigSize.height);
}

void ConfigControls::AddMenus() {
  std::array<MenuItem*, kMostDepth> last = {};
  for (const MenuRow& row : kMenuRows) {
    last.at(row.depth) = row.depth == 0 ? &menus.Add(row.name, row.caption)
                                        : &last.at(row.depth - 1)->Add(row.name, row.caption, row.shortcut);
  }
}

}  // namespace quorvale
