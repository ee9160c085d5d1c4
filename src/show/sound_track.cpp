#include "show/sound_track.h"

#include "process/process.h"
#include "process/rules.h"
#include "show/list_position.h"
#include "system/sound_player.h"

namespace quorvale {

void PlayNextSound(Process& process) {
  const std::int32_t SoundIndex =
      NextPosition(process.options, process.show, kResetSoundList, kLastSound, process.show.SoundList.Count());
  Step([&] { process.app.PumpEvents(); });
  // Ask the list only now: an event may have replaced it.
  Step([&] { PlaySoundFile(process, process.show.SoundList.Item(SoundIndex), kSndFilename); });
  Step([&] { KeepPosition(process.options, process.show, kLastSound, SoundIndex); });
  Step([&] { process.app.PumpEvents(); });
}

bool PlaySoundFile(Process& process, const std::string& path, std::uint32_t flags) {
  return process.system.sound.PlaySound(path, flags | kSndAsync | kSndNoDefault);
}

}  // namespace quorvale
