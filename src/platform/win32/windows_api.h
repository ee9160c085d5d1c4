#pragma once

// Includes <windows.h> and undefines its macros that would rename our functions. Every file of this platform includes
// this header instead.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>

#undef FindWindow
#undef GetShortPathName
#undef GetSystemDirectory
#undef MessageBox
#undef PlaySound
#undef RegCreateKeyEx
#undef RegDeleteKey
#undef RegDeleteValue
#undef RegOpenKeyEx
#undef RegQueryValueEx
#undef RegSetValueEx
#undef ShellExecute
#undef SystemParametersInfo
#undef WinHelp
#undef WritePrivateProfileString
