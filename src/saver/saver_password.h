#pragma once

#include <cstdint>
#include <string>

#include "system/window_system.h"

namespace quorvale {

class Registry;
struct Process;

// Reads what the show needs to know of the password: whether one is set, and the system's family.
// Fails with kOverflow when the stored flag is a number that fits no flag.
void ReadPasswordState(Process& process);

// Whether this program has to ask for the password: one is set, on a family that leaves that to savers.
bool IsPasswordInForce(const Process& process);

// Tells the system that a saver runs or has stopped, where a password is in force.
void TellSaverRunning(Process& process, bool running);

// Asks the user; true when the show may end.
bool VerifyPassword(Process& process, WindowHandle owner);

// Opens the system's dialog for changing the password.
void ChangePassword(Process& process);

// One value of any key as text, read past the program's own settings; empty on every failure. A number
// gives its first three decimal digits, with zeros in front.
std::string ReadKeyValue(Registry& registry, std::uint32_t hive, const std::string& path, const std::string& name);

}  // namespace quorvale
