#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

struct Process;

// Starts the next sound of `SoundList`, which has at least one entry, and stores its position. A sound
// that still plays is cut off. Runs inside the tick; no failure comes out of it.
void PlayNextSound(Process& process);

// Starts a wave file and returns at once. True when it plays; a file that can't is silent.
bool PlaySoundFile(Process& process, const std::string& path, std::uint32_t flags);

}  // namespace quorvale
