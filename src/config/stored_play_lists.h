#pragma once

namespace quorvale {

struct Process;
class frmConfig;

// The result of storing the window's lists.
enum class ListsSaved {
  kSaved,
  kUnread,   // the stored lists could not be read before, so they must not be replaced
  kRefused,  // the store could not be written and is unchanged
};

// Stores both lists and the current play list file's path in one transaction. Stored entries that did not fit a list
// box are kept after its items.
ListsSaved SavePlayLists(Process& process, const frmConfig& frm);

// Appends the stored lists to the form's list boxes. Sets the form's current play list file and its `TakenParts`.
void LoadPlayLists(Process& process, frmConfig& frm);

}  // namespace quorvale
