#pragma once

namespace quorvale {

class ImageControl;
class PictureBox;
struct Process;

// Runs the effect that the option `SwapAffect` names on `PicBase`, which shows `PicPreview`. It covers the old picture
// only; the new one is not loaded yet. Pumps events between steps, and ends the program if `stop_requested` is set.
// Fails half-way when an option is not a number or the form is unloaded.
void RunTransition(Process& process, PictureBox& PicBase, ImageControl& PicPreview);

}  // namespace quorvale
