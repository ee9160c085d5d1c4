// Stands for the system's password library, and for a user who gets the password wrong the first time.

#include <windows.h>

extern "C" __declspec(dllexport) BOOL WINAPI VerifyScreenSavePwd(HWND owner) {
  // The library is loaded anew for each question, so the process has to remember.
  const bool is_asked_again = GetEnvironmentVariableA("QUORVALE_ASKED", nullptr, 0) != 0;
  SetEnvironmentVariableA("QUORVALE_ASKED", "yes");
  return is_asked_again && IsWindow(owner) != 0 ? TRUE : FALSE;
}
