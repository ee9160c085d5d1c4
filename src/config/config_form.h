#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "config/config_controls.h"
#include "playlist/list_store.h"

namespace quorvale {

// The result of asking whether to save.
enum class SaveAnswer {
  kNotDone = 0,  // the user said yes, but nothing was saved
  kCancel = 2,
  kSaved = 6,
  kGivenUp = 7,
};

// The result of storing the window's lists.
enum class ListsSaved {
  kSaved,
  kUnread,   // the stored lists could not be read before, so they must not be replaced
  kRefused,  // the store could not be written and is unchanged
};

// The configuration window. The user edits copies of the play lists in its list boxes; only OK writes them to the
// store. The monitor at the top previews the show with the lists as edited.
class ConfigForm : public ConfigControls {
 public:
  explicit ConfigForm(Process& process);

  // The path of the play list file that is open; empty if none is. The frame's caption shows its name.
  const std::string& CurPlayList() const { return cur_play_list_; }
  void SetCurPlayList(std::string path);
  // Whether the lists differ from the play list file.
  bool PlayListDirty() const { return play_list_dirty_; }
  void SetPlayListDirty(bool dirty) { play_list_dirty_ = dirty; }

  // Fills the list boxes from the store and reads which play list file is open.
  void LoadPlayLists();
  // Stores both lists and the current play list file's path in one transaction. Stored entries that did not fit a list
  // box are kept after its items.
  ListsSaved SavePlayLists();

  // Both report failures in a box. If writing fails, the file is unchanged and the lists stay dirty. If reading fails,
  // the lists keep what was read.
  void WritePlayListFile(const std::string& path);
  void ReadPlayListFile(const std::string& path);

  // Asks whether to save the changes, and does as the user says.
  SaveAnswer PromptSaveChanges();

  // Stops (`on`) or starts the show's timer. Does not stop a running tick.
  void PausePreview(bool on);
  // Restarts the show with the current lists.
  void RefreshPreview();

  // Enables buttons and menu items, and sets the path line, according to the visible list.
  void UpdateCommandStates();

  // Opens the help file with a command of `Programs::WinHelp`. Reports a failure in a box.
  void ShowHelp(const std::string& help_file, std::uint32_t command);

 protected:
  void Form_Load() override;
  void Form_Help() override;
  void tmrSwitch_Timer() override;

 private:
  void ConnectControls();
  void ConnectMenus();
  void PlacePreviewPane();
  // Says in a box if a list could not be read or is longer than its list box.
  void ReportIncompleteLists();

  void OptPicture_Click();
  void OptSound_Click();
  void cmdOK_Click();
  void cmdCancel_Click();
  void mnuExit_Click();
  void mnuOptions_Click();
  void mnuHelpAbout_Click();
  void mnuHelpContents_Click();
  void mnuHelpSearchForHelpOn_Click();

  // The commands that edit a list: config_form_lists.cpp.
  void cmdImages_Click(int index);
  void mnuAddFiles_Click();
  void mnuAddDir_Click();
  void lstList_Dropped(const std::vector<std::string>& paths);
  void lstList_DeletePressed();
  void EditVisibleList(const std::function<void()>& action);
  void RunListCommand(int index);
  void AddFiles();
  void AddDirectory();

  // Play list files: config_form_files.cpp.
  void mnuNew_Click();
  void mnuOpen_Click();
  void mnuMergeList_Click();
  void mnuSave_Click();
  void mnuSaveAs_Click();
  bool MayLeaveLists();
  void WithPreviewPaused(const std::function<void()>& body);
  void SetUpFileDialog(const std::string& title, const std::string& start_name, const std::string& filter,
                       std::uint32_t flags);
  void ShowOpenDialog();
  void PruneLists();

  // Runs one part of a handler. A failure in it is shown, and the handler continues.
  void Attempt(const std::function<void()>& piece) { App().Dispatch(piece); }
  // Runs one statement of `procedure`. A failure in it is shown in a box that names the procedure, and the caller goes
  // on with the next statement.
  void RunStatement(const std::string& procedure, const std::function<void()>& statement);

  std::string cur_play_list_;
  bool play_list_dirty_ = false;
  // How much of each stored list is in its list box.
  std::array<LoadedPart, 2> loaded_parts_{LoadedPart::kAll, LoadedPart::kAll};
};

}  // namespace quorvale
