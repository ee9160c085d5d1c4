#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

struct Process;

// Starts the next sound of `SoundList` (which must not be empty) and stores its position. Stops a sound that is still
// playing. Runs inside the tick; throws no `Failure`.
void PlayNextSound(Process& process);

// Starts a wave file and returns at once. False, and silence, if it can't be played.
bool PlaySoundFile(Process& process, const std::string& path, std::uint32_t flags);

}  // namespace quorvale
