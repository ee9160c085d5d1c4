// Plays the system's password library. The first question in a process is refused; then the answer is the owner's
// handle.

#include <windows.h>

extern "C" __declspec(dllexport) BOOL WINAPI VerifyScreenSavePwd(HWND owner) {
  // The library is loaded anew for each question, so a variable of the process remembers the first one.
  const bool is_first = GetEnvironmentVariableA("QUORVALE_ASKED", nullptr, 0) == 0;
  SetEnvironmentVariableA("QUORVALE_ASKED", "yes");
  return is_first ? FALSE : static_cast<BOOL>(reinterpret_cast<INT_PTR>(owner));
}
