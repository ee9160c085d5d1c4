// Stands for the system's password library: the answer is the number of the window that asked.

#include "platform/win32/windows_api.h"

extern "C" __declspec(dllexport) BOOL WINAPI VerifyScreenSavePwd(HWND owner) {
  return static_cast<BOOL>(reinterpret_cast<INT_PTR>(owner));
}
