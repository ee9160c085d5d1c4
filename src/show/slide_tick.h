#pragma once

namespace quorvale {

class ShowForm;
struct Process;

// Moves a show on by one slide: wipes the picture on view, shows the next one, starts the next sound and
// sets the timer. `form` is the one whose timer fired. No failure comes out of it: a
// step that fails is skipped. Not to be entered again while it runs.
void SlideTick(Process& process, ShowForm& form);

}  // namespace quorvale
