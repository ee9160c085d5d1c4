#pragma once

namespace quorvale {

class ShowForm;
struct Process;

// One slide change: runs the transition over the current picture, shows the next, starts the next sound and sets the
// timer's interval. `form` is the form whose timer fired. Throws no `Failure`: failed steps are skipped. Not reentrant.
void SlideTick(Process& process, ShowForm& form);

}  // namespace quorvale
