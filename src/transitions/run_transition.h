#pragma once

namespace quorvale {

class ImageControl;
struct Process;

// Wipes the picture on view away by the effect that the option `SwapAffect` names, on the picture box
// that holds `PicPreview`; the next picture plays no part in it. Pumps events all along, and ends the
// program when it finds `StopRequested`. Fails when an option is no number or the form goes away, and is
// then abandoned where it stands.
void RunTransition(Process& process, ImageControl& PicPreview);

}  // namespace quorvale
