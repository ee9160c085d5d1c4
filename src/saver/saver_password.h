#pragma once

#include <cstdint>
#include <string>

#include "system/window_system.h"

namespace quorvale {

class PasswordSystem;
class Registry;
struct Process;
struct ShowState;

// Reads into the show's state whether a password is set, and the system's family. Fails with kOverflow when the stored
// flag is out of range.
void ReadPasswordState(Process& process);

// Whether this program must ask for the password: one is set, and the system leaves the check to savers.
bool IsPasswordInForce(const ShowState& show);

// Reports to the system that a saver has started or stopped. Does nothing unless a password is in force.
void ReportSaverRunning(Process& process, bool running);

// Asks the user; true when the show may end.
bool VerifyPassword(PasswordSystem& password, WindowHandle owner);

// Opens the system's dialog for changing the password.
void ChangePassword(Process& process);

// A registry value of any key (not only the program's settings) as text; empty on failure. Of a number only the first
// three decimal digits, padded with zeros.
std::string ReadKeyValue(Registry& registry, std::uint32_t hive, const std::string& path, const std::string& name);

}  // namespace quorvale
