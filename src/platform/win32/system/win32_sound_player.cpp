#include "platform/win32/system/win32_sound_player.h"

#include "platform/win32/windows_api.h"
// Behind the header that it builds on.
#include <mmsystem.h>
#undef PlaySound

namespace quorvale {

bool Win32SoundPlayer::PlaySound(const std::string& path, std::uint32_t flags) {
  return PlaySoundA(path.c_str(), nullptr, flags) != 0;
}

}  // namespace quorvale
