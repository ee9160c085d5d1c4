#include "config/config_form.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>

#include "base/application_info.h"
#include "base/failure.h"
#include "base/strings.h"
#include "base/text.h"
#include "config/about_form.h"
#include "config/artwork.h"
#include "config/list_editing.h"
#include "config/options_form.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"
#include "process/process.h"
#include "show/show_form.h"
#include "show/slide_tick.h"
#include "system/programs.h"

namespace quorvale {
namespace {

namespace config_texts = strings::configuration;

constexpr std::array<const char*, 2> kSections = {kPictureSection, kSoundSection};

bool Contains(const std::array<LoadedPart, 2>& parts, LoadedPart part) {
  return std::find(parts.begin(), parts.end(), part) != parts.end();
}

}  // namespace

ConfigForm::ConfigForm(Process& process) : ConfigControls(process) {
  ConnectControls();
  ConnectMenus();
}

void ConfigForm::ConnectControls() {
  view_pictures.Click = [this] { OptPicture_Click(); };
  view_sounds.Click = [this] { OptSound_Click(); };
  for (ListBox& list : lists) {
    list.Click = [this] { UpdateCommandStates(); };
    list.Dropped = [this](const std::vector<std::string>& paths) { lstList_Dropped(paths); };
    list.DeletePressed = [this] { lstList_DeletePressed(); };
  }
  for (int index = 0; index < static_cast<int>(list_buttons.size()); ++index) {
    list_buttons.at(static_cast<std::size_t>(index)).Click = [this, index] { cmdImages_Click(index); };
  }
  ok.Click = [this] { cmdOK_Click(); };
  cancel.Click = [this] { cmdCancel_Click(); };
  menu_hook.Message = [this](int /*message*/) { PausePreview(false); };
}

void ConfigForm::ConnectMenus() {
  for (const char* const menu : {"mnuFile", "mnuPlayList", "mnuHelp"}) {
    menus.Item(menu).Click = [this] { PausePreview(true); };
  }
  const auto connect = [this](const char* item, void (ConfigForm::*handler)()) {
    menus.Item(item).Click = [this, handler] { (this->*handler)(); };
  };
  connect("mnuNew", &ConfigForm::mnuNew_Click);
  connect("mnuOpen", &ConfigForm::mnuOpen_Click);
  connect("mnuSave", &ConfigForm::mnuSave_Click);
  connect("mnuSaveAs", &ConfigForm::mnuSaveAs_Click);
  connect("mnuMergeList", &ConfigForm::mnuMergeList_Click);
  connect("mnuExit", &ConfigForm::mnuExit_Click);
  connect("mnuAddFiles", &ConfigForm::mnuAddFiles_Click);
  connect("mnuAddDir", &ConfigForm::mnuAddDir_Click);
  menus.Item("mnuRemove").Click = [this] { cmdImages_Click(kRemove); };
  menus.Item("mnuMoveUp").Click = [this] { cmdImages_Click(kMoveUp); };
  menus.Item("mnuMoveDown").Click = [this] { cmdImages_Click(kMoveDown); };
  for (const auto& [item, button] :
       {std::pair{"mnuViewPics", &view_pictures}, std::pair{"mnuViewSounds", &view_sounds}}) {
    menus.Item(item).Click = [view = button] {
      view->SetValue(true);
      view->SetFocus();
    };
  }
  connect("mnuOptions", &ConfigForm::mnuOptions_Click);
  connect("mnuHelpContents", &ConfigForm::mnuHelpContents_Click);
  connect("mnuHelpSearchForHelpOn", &ConfigForm::mnuHelpSearchForHelpOn_Click);
  connect("mnuHelpAbout", &ConfigForm::mnuHelpAbout_Click);
}

void ConfigForm::Form_Load() {
  menu_hook.SetHwnd(Hwnd());
  menu_hook.Report(kWmExitMenuLoop);
  PlacePreviewPane();
  Move(Left(), Top(), Width(), ok.Place().top + 3 * ok.Place().height);
  CenterOnScreen();
  const auto run = [this](const std::function<void()>& statement) { RunStatement("GetConfiguration(Me)", statement); };
  run([this] { LoadPlayLists(); });
  run([this] { ReportIncompleteLists(); });
  for (ListBox& list : lists) run([this, &list] { PruneMissing(process_.system.files, list); });
  run([this] { UpdateCommandStates(); });
  run([this] { RefreshPreview(); });
}

// Centres the monitor and puts the picture box on its screen. Both are placed on whole pixels.
void ConfigForm::PlacePreviewPane() {
  const auto twips_x = static_cast<float>(process_.screen_twips_x);
  const auto twips_y = static_cast<float>(process_.screen_twips_y);
  monitor.SetArtwork(&MonitorOnBackground);
  TwipRect place = monitor.Place();
  place.left = (Width() - place.width) / 2;
  place.height = static_cast<float>(kMonitorHeight) * twips_y;
  monitor.Move(place);
  PicBase.Move(place.left + static_cast<float>(kMonitorScreenOffset) * twips_x,
               place.top + static_cast<float>(kMonitorScreenOffset) * twips_y,
               static_cast<float>(kMonitorScreenWidth) * twips_x, static_cast<float>(kMonitorScreenHeight) * twips_y);
  PicPreview.SetTop(0);
  PicPreview.SetLeft(0);
  PicPreview.SetWidth(PicBase.Width());
  PicPreview.SetHeight(PicBase.Height());
}

void ConfigForm::LoadPlayLists() {
  for (std::size_t i = 0; i < kSections.size(); ++i) {
    loaded_parts_.at(i) = LoadList(process_.settings, lists.at(i), kSections.at(i), kFileKeyPrefix);
  }
  std::string path;
  // Like the entries of a list, a path that was not read must not be replaced.
  if (!process_.options.Read(kPlayList, path)) loaded_parts_.front() = LoadedPart::kUnread;
  SetCurPlayList(std::move(path));
}

ListsSaved ConfigForm::SavePlayLists() {
  if (Contains(loaded_parts_, LoadedPart::kUnread)) return ListsSaved::kUnread;
  const bool saved = process_.settings.SaveTogether([this] {
    for (std::size_t i = 0; i < kSections.size(); ++i) {
      const auto save = loaded_parts_.at(i) == LoadedPart::kFirst ? SaveFirstPart : SaveList;
      save(process_.settings, lists.at(i), kSections.at(i), kFileKeyPrefix);
    }
    process_.options.SetText(kPlayList, CurPlayList());
  });
  return saved ? ListsSaved::kSaved : ListsSaved::kRefused;
}

void ConfigForm::ReportIncompleteLists() {
  std::string text;
  if (Contains(loaded_parts_, LoadedPart::kUnread)) {
    text = config_texts::kUnread;
  } else if (Contains(loaded_parts_, LoadedPart::kFirst)) {
    text = strings::Fill(config_texts::kListIsLonger, {std::to_string(ListBox::kMostItems)});
  }
  if (!text.empty()) App().ShowMessageBox({.text = text, .icon = MessageBoxIcon::kExclamation});
}

void ConfigForm::PausePreview(bool on) { tmrSwitch.SetEnabled(!on); }

void ConfigForm::RefreshPreview() { InitShow(process_, *this, lists[0], lists[1]); }

void ConfigForm::tmrSwitch_Timer() {
  // The window is still hidden while a box reports a failure of the load. The tick would close it as an orphan.
  if (!Visible()) return;
  RunStatement("tmrSwitch_Timer", [this] { SlideTick(process_, *this); });
  process_.show.preview_suspended = false;
}

void ConfigForm::RunStatement(const std::string& procedure, const std::function<void()>& statement) {
  const auto report = [&](FailureNumber number, const std::string& source) {
    App().ShowMessageBox({.text = strings::Fill(config_texts::kProcedureFailed,
                                                {procedure, std::to_string(static_cast<int>(number)), source})});
  };
  try {
    statement();
  } catch (const Failure& failure) {
    report(failure.Number(), failure.Source());
  } catch (const std::exception& error) {
    report(FailureNumber::kInternal, error.what());
  }
}

void ConfigForm::Form_Help() { mnuHelpContents_Click(); }

void ConfigForm::OptPicture_Click() {
  lists[0].SetVisible(true);
  lists[1].SetVisible(false);
  UpdateCommandStates();
}

void ConfigForm::OptSound_Click() {
  lists[1].SetVisible(true);
  lists[0].SetVisible(false);
  UpdateCommandStates();
}

void ConfigForm::UpdateCommandStates() {
  const ListBox& list = VisibleList();
  const bool one_selected = list.SelCount() == 1;
  const bool can_move = one_selected && list.ListCount() > 1;
  const auto enable = [this](int button, const char* item, bool enabled) {
    list_buttons.at(static_cast<std::size_t>(button)).SetEnabled(enabled);
    menus.Item(item).SetEnabled(enabled);
  };
  enable(kMoveUp, "mnuMoveUp", can_move && !list.Selected(0));
  enable(kMoveDown, "mnuMoveDown", can_move && !list.Selected(list.ListCount() - 1));
  enable(kRemove, "mnuRemove", list.SelCount() >= 1);
  const std::string directory =
      one_selected ? Trim(Mid(list.List(FirstSelected(list)), kListEntryDirectoryColumn)) : std::string();
  path_line.SetCaption(LiteralCaption(directory));
}

// If saving fails, the window stays open with the changes, so that the user can act.
void ConfigForm::cmdOK_Click() {
  const ListsSaved saved = SavePlayLists();
  if (saved != ListsSaved::kSaved) {
    App().ShowMessageBox(
        {.text = saved == ListsSaved::kUnread ? config_texts::kUnreadNotSaved : config_texts::kNotSaved,
         .icon = MessageBoxIcon::kExclamation});
    return;
  }
  if (!CurPlayList().empty()) WritePlayListFile(CurPlayList());
  Unload();
}

void ConfigForm::cmdCancel_Click() { mnuExit_Click(); }

void ConfigForm::mnuExit_Click() {
  if (!PlayListDirty()) {
    Unload();
    return;
  }
  const SaveAnswer answer = PromptSaveChanges();
  if (answer == SaveAnswer::kSaved) cmdOK_Click();
  if (answer == SaveAnswer::kGivenUp) Unload();
}

void ConfigForm::mnuOptions_Click() {
  PausePreview(true);
  Attempt([this] {
    const auto options = std::make_shared<OptionsForm>(process_);
    options->SetIcon(Icon());
    options->ShowModal();
  });
  PausePreview(false);
  Attempt([this] { RefreshPreview(); });
  UpdateCommandStates();
}

void ConfigForm::mnuHelpAbout_Click() {
  PausePreview(true);
  Attempt([this] { std::make_shared<AboutForm>(process_)->ShowModal(); });
  PausePreview(false);
}

void ConfigForm::mnuHelpContents_Click() { ShowHelp(kHelpFile, kHelpContents); }

void ConfigForm::mnuHelpSearchForHelpOn_Click() { ShowHelp(kHelpFile, kHelpPartialKey); }

void ConfigForm::ShowHelp(const std::string& help_file, std::uint32_t command) {
  if (help_file.empty()) {
    App().ShowMessageBox({.text = config_texts::kNoHelp, .title = Caption(), .icon = MessageBoxIcon::kInformation});
    return;
  }
  try {
    // An empty search key; 0 for commands without one.
    const std::uint32_t zero = 0;
    process_.system.programs.WinHelp(Hwnd(), help_file, command, reinterpret_cast<std::uintptr_t>(&zero));
  } catch (const std::exception& failure) {
    App().ShowMessageBox({.text = failure.what()});
  }
}

}  // namespace quorvale
