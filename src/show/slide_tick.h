#pragma once

namespace quorvale {

class ImageControl;
struct Process;

// Moves a show on by one slide: wipes the picture on view, shows the next one, starts the next sound and
// sets the timer. The controls are those of the form whose timer fired. No failure comes out of it: a
// step that fails is skipped. Not to be entered again while it runs.
void SlideTick(Process& process, ImageControl& PicPreview, ImageControl& imgFullSize);

}  // namespace quorvale
