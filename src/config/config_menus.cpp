#include "config/config_menus.h"

#include <array>

#include "toolkit/menu.h"

namespace quorvale {
namespace {

struct MenuRow {
  std::size_t depth = 0;  // 0 is a top menu; the parent is the last row above with a depth one less
  const char* name = "";
  const char* caption = "";
  const char* shortcut = "";
};

constexpr std::size_t kMostDepth = 3;

constexpr MenuRow kRows[] = {
    {0, "mnuFile", "&File"},
    {1, "mnuNew", "&New Play List", "Ctrl+N"},
    {1, "mnuOpen", "&Open Play List...", "Ctrl+O"},
    {1, "mnuSave", "&Save Play List...", "Ctrl+S"},
    {1, "null6", "-"},
    {1, "mnuSaveAs", "Save Play List &As..."},
    {1, "mnuMergeList", "A&dd Play List..."},
    {1, "mnunull", "-"},
    {1, "mnuExit", "E&xit"},
    {0, "mnuPlayList", "&Play List"},
    {1, "mnuAddFiles", "Add &Files..."},
    {1, "mnuAddDir", "Add &Directory..."},
    {1, "mnuRemove", "&Remove File"},
    {1, "mnuNull1", "-"},
    {1, "mnuMoveUp", "Move &Up"},
    {1, "mnuMoveDown", "Move Do&wn"},
    {1, "mnuNull2", "-"},
    {1, "mnuView", "&View"},
    {2, "mnuViewPics", "&Picture Files"},
    {2, "mnuViewSounds", "&Sound Files"},
    {1, "mnuNull3", "-"},
    {1, "mnuOptions", "&Options..."},
    {0, "mnuHelp", "&Help"},
    {1, "mnuHelpContents", "&Contents"},
    {1, "mnuHelpSearchForHelpOn", "&Search for Help On..."},
    {1, "mnunull5", "-"},
    {1, "mnuHelpAbout", "&About Quorvale..."},
};

}  // namespace

void AddConfigMenus(MenuBar& bar) {
  std::array<MenuItem*, kMostDepth> last = {};
  for (const MenuRow& row : kRows) {
    last.at(row.depth) = row.depth == 0 ? &bar.Add(row.name, row.caption)
                                        : &last.at(row.depth - 1)->Add(row.name, row.caption, row.shortcut);
  }
}

}  // namespace quorvale
