#pragma once

namespace quorvale {

struct Process;

// Makes the cursor visible, gives the dialog that configuration disabled back to the user and ends the
// process. No form unloads.
[[noreturn]] void EndSaver(Process& process);

// Calls `ShowCursor` until its count is greater than 5, or less than -5: past whatever count the system
// began with.
void ForceCursorOn(Process& process);
void ForceCursorOff(Process& process);

}  // namespace quorvale
