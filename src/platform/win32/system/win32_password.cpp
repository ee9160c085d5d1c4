#include "platform/win32/system/win32_password.h"

#include "platform/win32/loaded_library.h"
#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

using VerifyFunction = BOOL WINAPI(HWND owner);
using ChangeFunction = DWORD WINAPI(LPCSTR provider, HWND owner, DWORD flags, DWORD reserved);

}  // namespace

std::uint32_t Win32Password::VerifyScreenSavePwd(WindowHandle owner) {
  // A saver's own directory is the system directory, where it is installed. It is asked on old systems only.
  const LoadedLibrary library("password.cpl", LibraryPlace::kSystemOrBesideTheProgram);
  auto* const verify = library.Find<VerifyFunction>("VerifyScreenSavePwd");
  return verify == nullptr ? 0 : static_cast<std::uint32_t>(verify(reinterpret_cast<HWND>(owner)));
}

void Win32Password::PwdChangePassword(const std::string& provider, WindowHandle owner) {
  const LoadedLibrary library("mpr.dll");
  auto* const change = library.Find<ChangeFunction>("PwdChangePasswordA");
  if (change != nullptr) change(provider.c_str(), reinterpret_cast<HWND>(owner), 0, 0);
}

}  // namespace quorvale
