#include "config/config_form.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "base/text.h"
#include "config/about_form.h"
#include "config/application_info.h"
#include "config/center_form.h"
#include "config/help_commands.h"
#include "config/list_editing.h"
#include "config/options_form.h"
#include "config/stored_play_lists.h"
#include "config/told_failure.h"
#include "playlist/list_entry.h"
#include "playlist/prune_missing.h"
#include "process/process.h"
#include "system/programs.h"

namespace quorvale {
namespace {

bool Contains(const std::array<TakenPart, 2>& parts, TakenPart part) {
  return std::find(parts.begin(), parts.end(), part) != parts.end();
}

std::string ReasonAgainstSaving(ListsSaved saved) {
  if (saved == ListsSaved::kUnread) {
    return "Nothing was saved: your settings could not be read when this window opened, and what was not read is not "
           "replaced. The menu File keeps the lists in a Play List file.";
  }
  return "Your settings can't be saved, and are what they were. The disk may be full, or another program may hold "
         "them.";
}

}  // namespace

frmConfig::frmConfig(Process& process) : ConfigControls(process) {
  ConnectControls();
  ConnectMenus();
}

void frmConfig::ConnectControls() {
  OptPicture.Click = [this] { OptPicture_Click(); };
  OptSound.Click = [this] { OptSound_Click(); };
  for (ListBox& list : lstList) {
    list.Click = [this] { UpdateCommandStates(); };
    list.Dropped = [this](const std::vector<std::string>& paths) { lstList_Dropped(paths); };
    list.DeletePressed = [this] { lstList_DeletePressed(); };
  }
  for (int index = 0; index < static_cast<int>(cmdImages.size()); ++index) {
    cmdImages.at(static_cast<std::size_t>(index)).Click = [this, index] { cmdImages_Click(index); };
  }
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  Msghook1.Message = [this](int /*message*/) { PausePreview(false); };
}

void frmConfig::ConnectMenus() {
  for (const char* const menu : {"mnuFile", "mnuPlayList", "mnuHelp"}) {
    Menus.Item(menu).Click = [this] { PausePreview(true); };
  }
  const auto connect = [this](const char* item, void (frmConfig::*handler)()) {
    Menus.Item(item).Click = [this, handler] { (this->*handler)(); };
  };
  connect("mnuNew", &frmConfig::mnuNew_Click);
  connect("mnuOpen", &frmConfig::mnuOpen_Click);
  connect("mnuSave", &frmConfig::mnuSave_Click);
  connect("mnuSaveAs", &frmConfig::mnuSaveAs_Click);
  connect("mnuMergeList", &frmConfig::mnuMergeList_Click);
  connect("mnuExit", &frmConfig::mnuExit_Click);
  connect("mnuAddFiles", &frmConfig::mnuAddFiles_Click);
  connect("mnuAddDir", &frmConfig::mnuAddDir_Click);
  Menus.Item("mnuRemove").Click = [this] { cmdImages_Click(kRemove); };
  Menus.Item("mnuMoveUp").Click = [this] { cmdImages_Click(kMoveUp); };
  Menus.Item("mnuMoveDown").Click = [this] { cmdImages_Click(kMoveDown); };
  for (const auto& [item, button] : {std::pair{"mnuViewPics", &OptPicture}, std::pair{"mnuViewSounds", &OptSound}}) {
    Menus.Item(item).Click = [view = button] {
      view->SetValue(true);
      view->SetFocus();
    };
  }
  connect("mnuOptions", &frmConfig::mnuOptions_Click);
  connect("mnuHelpContents", &frmConfig::mnuHelpContents_Click);
  connect("mnuHelpSearchForHelpOn", &frmConfig::mnuHelpSearchForHelpOn_Click);
  connect("mnuHelpAbout", &frmConfig::mnuHelpAbout_Click);
}

void frmConfig::Form_Load() {
  Msghook1.SetHwnd(Hwnd());
  Msghook1.Report(kWmExitMenuLoop);
  PlacePreviewPane();
  Move(Left(), Top(), Width(), cmdOK.Place().top + 3 * cmdOK.Place().height);
  CenterForm(*this);
  const auto tell = [this](const std::function<void()>& statement) {
    TellFailure(App(), "GetConfiguration(Me)", statement);
  };
  tell([this] { LoadPlayLists(process_, *this); });
  tell([this] { TellWhatWasNotTaken(); });
  for (ListBox& list : lstList) tell([this, &list] { PruneMissing(process_.system.files, list); });
  tell([this] { UpdateCommandStates(); });
  tell([this] { RefreshPreview(); });
}

void frmConfig::TellWhatWasNotTaken() {
  std::string text;
  if (Contains(TakenParts, TakenPart::kUnread)) {
    text =
        "Your settings can't be read. The lists that this window shows are not the stored ones, and OK will not put "
        "them in their place.";
  } else if (Contains(TakenParts, TakenPart::kFirst)) {
    text = "A Play List is full: it shows the first " + std::to_string(ListBox::kMostItems) +
           " of its entries. The others stay in the settings and are played.";
  }
  if (!text.empty()) App().ShowMessageBox({.text = text, .icon = MessageBoxIcon::kExclamation});
}

void frmConfig::Form_Help() { mnuHelpContents_Click(); }

void frmConfig::OptPicture_Click() {
  lstList[0].SetVisible(true);
  lstList[1].SetVisible(false);
  UpdateCommandStates();
}

void frmConfig::OptSound_Click() {
  lstList[1].SetVisible(true);
  lstList[0].SetVisible(false);
  UpdateCommandStates();
}

void frmConfig::UpdateCommandStates() {
  const ListBox& list = ListOnView();
  const bool one_selected = list.SelCount() == 1;
  const bool can_move = one_selected && list.ListCount() > 1;
  const auto enable = [this](int button, const char* item, bool enabled) {
    cmdImages.at(static_cast<std::size_t>(button)).SetEnabled(enabled);
    Menus.Item(item).SetEnabled(enabled);
  };
  enable(kMoveUp, "mnuMoveUp", can_move && !list.Selected(0));
  enable(kMoveDown, "mnuMoveDown", can_move && !list.Selected(list.ListCount() - 1));
  enable(kRemove, "mnuRemove", list.SelCount() >= 1);
  const std::string directory =
      one_selected ? Trim(Mid(list.List(FirstSelected(list)), kListEntryDirectoryColumn)) : std::string();
  lblPath.SetCaption(LiteralCaption(directory));
}

// If saving fails, the window stays open with the changes, so that the user can act.
void frmConfig::cmdOK_Click() {
  const ListsSaved saved = SavePlayLists(process_, *this);
  if (saved != ListsSaved::kSaved) {
    App().ShowMessageBox({.text = ReasonAgainstSaving(saved), .icon = MessageBoxIcon::kExclamation});
    return;
  }
  if (!CurPlayList().empty()) WritePlayListFile(CurPlayList());
  Unload();
}

void frmConfig::cmdCancel_Click() { mnuExit_Click(); }

void frmConfig::mnuExit_Click() {
  if (!PlayListDirty()) {
    Unload();
    return;
  }
  const SaveAnswer answer = PromptSaveChanges();
  if (answer == SaveAnswer::kSaved) cmdOK_Click();
  if (answer == SaveAnswer::kGivenUp) Unload();
}

void frmConfig::mnuOptions_Click() {
  PausePreview(true);
  Attempt([this] {
    const auto options = std::make_shared<frmOptions>(process_);
    options->SetIcon(Icon());
    options->ShowModal();
  });
  PausePreview(false);
  Attempt([this] { RefreshPreview(); });
  UpdateCommandStates();
}

void frmConfig::mnuHelpAbout_Click() {
  PausePreview(true);
  Attempt([this] { std::make_shared<frmAbout>(process_)->ShowModal(); });
  PausePreview(false);
}

void frmConfig::mnuHelpContents_Click() { ShowHelp(process_, *this, kHelpFile, kHelpContents); }

void frmConfig::mnuHelpSearchForHelpOn_Click() { ShowHelp(process_, *this, kHelpFile, kHelpPartialKey); }

}  // namespace quorvale
