#pragma once

namespace quorvale {

class frmOptions;

// Fills the dialog's controls from the store, one option after another. A stored value that its control can't
// hold fails where it is one of the first six, flags, interval and background, and the description names its key; the
// options behind it are then not read. From the effect's name on, such a value leaves its control as it was.
void LoadOptions(frmOptions& frm);

// The same, but no value fails: each one that its control can't hold leaves it as it was.
void LoadUsableOptions(frmOptions& frm);

// Writes the thirteen options as the dialog's controls have them, and checks nothing. What can't be written stays as it
// was, without a word.
void SaveOptions(frmOptions& frm);

}  // namespace quorvale
