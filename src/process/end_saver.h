#pragma once

namespace quorvale {

struct Process;

// Ends the process at once; no form unloads. Before that it shows the cursor and enables the dialog that the
// configuration had disabled.
[[noreturn]] void EndSaver(Process& process);

// Calls `ShowCursor` until its count is greater than 5, or less than -5: past whatever count the system
// began with.
void ForceCursorOn(Process& process);
void ForceCursorOff(Process& process);

}  // namespace quorvale
