#pragma once

namespace quorvale {

struct Process;
class frmConfig;

// What came of writing the window's lists to the settings store.
enum class ListsSaved {
  kSaved,
  kUnread,   // the store could not be read when they were loaded, so they are no successors of what is in it
  kRefused,  // the store could not be written, and is as it was
};

// Writes both lists and the name of the current play list file to the settings store, as one act. Stored entries for
// which there was no room in a list stay behind it.
ListsSaved SavePlayLists(Process& process, const frmConfig& frm);

// Appends the stored lists to those of the form and sets its current play list file, and notes in the form how much of
// the lists it has got.
void LoadPlayLists(Process& process, frmConfig& frm);

}  // namespace quorvale
