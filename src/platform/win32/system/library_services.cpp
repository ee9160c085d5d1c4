#include "platform/win32/system/library_services.h"

namespace quorvale {
namespace {

using VerifyFunction = BOOL WINAPI(HWND owner);
using ChangeFunction = DWORD WINAPI(LPCSTR provider, HWND owner, DWORD flags, DWORD reserved);
using PlayFunction = BOOL WINAPI(LPCSTR path, HMODULE module, DWORD flags);

}  // namespace

std::uint32_t Win32Password::VerifyScreenSavePwd(WindowHandle owner) {
  // A saver is installed in the system directory, where this library is. Only the Windows 95 family asks for it.
  const LoadedLibrary library("password.cpl", LibraryPlace::kSystemOrBesideTheProgram);
  auto* const verify = library.Find<VerifyFunction>("VerifyScreenSavePwd");
  return verify == nullptr ? 0 : static_cast<std::uint32_t>(verify(reinterpret_cast<HWND>(owner)));
}

void Win32Password::PwdChangePassword(const std::string& provider, WindowHandle owner) {
  const LoadedLibrary library("mpr.dll");
  auto* const change = library.Find<ChangeFunction>("PwdChangePasswordA");
  if (change != nullptr) change(provider.c_str(), reinterpret_cast<HWND>(owner), 0, 0);
}

bool Win32SoundPlayer::PlaySound(const std::string& path, std::uint32_t flags) {
  // If it were linked, the loader would prefer a file of that name in the program's directory.
  if (!multimedia_) {
    multimedia_.emplace("winmm.dll");
    // A thread of the library's own plays, and may outlive the player: the library stays until the process ends.
    HMODULE stays = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"winmm.dll", &stays);
  }
  auto* const play = multimedia_->Find<PlayFunction>("PlaySoundA");
  return play != nullptr && play(path.c_str(), nullptr, flags) != 0;
}

}  // namespace quorvale
