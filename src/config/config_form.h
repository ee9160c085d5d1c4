#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "config/config_controls.h"
#include "playlist/list_store.h"

namespace quorvale {

// What came of the question whether to save.
enum class SaveAnswer {
  kNotDone = 0,  // the user said yes, but nothing was saved
  kCancel = 2,
  kSaved = 6,
  kGivenUp = 7,
};

// The configuration window. The user edits copies of the play lists in its list boxes; only OK writes them to the
// store. The monitor at the top previews the show with the lists as edited.
class frmConfig : public ConfigControls {
 public:
  explicit frmConfig(Process& process);

  // The full path of the current play list file; empty if there is none. The frame's caption shows its name.
  const std::string& CurPlayList() const { return cur_play_list_; }
  void SetCurPlayList(std::string path);
  // How much of each stored list is in its list box.
  std::array<TakenPart, 2> TakenParts{TakenPart::kAll, TakenPart::kAll};
  // Whether the lists have changed since they were loaded from or saved to a play list file.
  bool PlayListDirty() const { return play_list_dirty_; }
  void SetPlayListDirty(bool dirty) { play_list_dirty_ = dirty; }

  // Both say in a box what went wrong. A file that could not be written is what it was, and the lists stay
  // dirty; the lists keep what could be read.
  void WritePlayListFile(const std::string& path);
  void ReadPlayListFile(const std::string& path);

  // Asks whether to save the changes, and does as the user says.
  SaveAnswer PromptSaveChanges();

  // Switches the show's timer off or on. A tick that is running goes on.
  void PausePreview(bool on);
  // Starts the show anew from the lists as they stand.
  void RefreshPreview();

  // Sets what of the buttons and menu items is enabled, and the path line, by the list on view.
  void UpdateCommandStates();

 protected:
  void Form_Load() override;
  void Form_Help() override;
  void tmrSwitch_Timer() override;

 private:
  void ConnectControls();
  void ConnectMenus();
  void TellWhatWasNotTaken();

  void OptPicture_Click();
  void OptSound_Click();
  void cmdOK_Click();
  void cmdCancel_Click();
  void mnuExit_Click();
  void mnuOptions_Click();
  void mnuHelpAbout_Click();
  void mnuHelpContents_Click();
  void mnuHelpSearchForHelpOn_Click();

  void cmdImages_Click(int index);
  void mnuAddFiles_Click();
  void mnuAddDir_Click();
  void lstList_Dropped(const std::vector<std::string>& paths);
  void lstList_DeletePressed();
  void EditListOnView(const std::function<void()>& action);
  void RunListCommand(int index);
  void AddFiles();
  void AddDirectory();

  void mnuNew_Click();
  void mnuOpen_Click();
  void mnuMergeList_Click();
  void mnuSave_Click();
  void mnuSaveAs_Click();
  bool MayLeaveLists();
  void WithPreviewHeld(const std::function<void()>& body);
  void SetUpFileDialog(const std::string& title, const std::string& start_name, const std::string& filter,
                       std::uint32_t flags);
  void ShowOpenDialog();
  void PruneLists();

  void PlacePreviewPane();
  // Runs one piece of a handler, and the rest of the handler goes on after a failure in it.
  void Attempt(const std::function<void()>& piece) { App().Dispatch(piece); }

  std::string cur_play_list_;
  bool play_list_dirty_ = false;
};

}  // namespace quorvale
