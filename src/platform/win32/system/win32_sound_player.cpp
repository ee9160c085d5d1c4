#include "platform/win32/system/win32_sound_player.h"

namespace quorvale {
namespace {

using PlayFunction = BOOL WINAPI(LPCSTR path, HMODULE module, DWORD flags);

}  // namespace

bool Win32SoundPlayer::PlaySound(const std::string& path, std::uint32_t flags) {
  // Linked to the program it would be taken from the program's own directory before that of the system.
  if (!multimedia_) multimedia_.emplace("winmm.dll");
  auto* const play = multimedia_->Find<PlayFunction>("PlaySoundA");
  return play != nullptr && play(path.c_str(), nullptr, flags) != 0;
}

}  // namespace quorvale
