#pragma once

namespace quorvale {

struct Process;
class frmConfig;

// Writes both lists and the name of the current play list file to the settings store. What can't be written
// stays as it is, without a word.
void SavePlayLists(Process& process, const frmConfig& frm);

// Appends the stored lists to those of the form and sets its current play list file. Fails with kListFull.
void LoadPlayLists(Process& process, frmConfig& frm);

}  // namespace quorvale
