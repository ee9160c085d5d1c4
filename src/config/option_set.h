#pragma once

namespace quorvale {

class frmOptions;

// Fills the dialog's controls from the store, one option after another. A stored value that its control can't
// hold fails where it is one of the first six, flags, interval and background, and the description names its key; the
// options behind it are then not read. From the effect's name on, such a value leaves its control as it was.
// False when the store could not be read and a control has its fallback for that reason.
bool LoadOptions(frmOptions& frm);

// The same, but no value fails: each one that its control can't hold leaves it as it was.
bool LoadUsableOptions(frmOptions& frm);

// Writes the thirteen options as the dialog's controls have them, and checks nothing. False when they are not stored.
bool SaveOptions(frmOptions& frm);

}  // namespace quorvale
