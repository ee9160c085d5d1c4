#pragma once

namespace quorvale {

class frmOptions;

// Fills the dialog's controls from the store in the order of the options. If a control can't hold the stored value of
// one of the first six (up to the background), this fails, the description names the key, and later options are not
// read. From the effect's name on, such a control stays unchanged. False when the store could not be read and a control
// shows its fallback instead.
bool LoadOptions(frmOptions& frm);

// The same, but never fails: controls that can't hold their value stay unchanged.
bool LoadUsableOptions(frmOptions& frm);

// Stores the values of all controls without checking them. False when that fails.
bool SaveOptions(frmOptions& frm);

}  // namespace quorvale
