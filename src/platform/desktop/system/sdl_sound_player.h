#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/desktop/system/audio_device.h"
#include "platform/desktop/system/wave_stream.h"
#include "system/sound_player.h"

namespace quorvale {

// Plays wave files on the desktop's sound device. A thread, made at the first sound, opens the device,
// feeds it and closes it after a second of silence; between sounds nothing wakes.
//
// Destroying the player waits for that thread only where it is opening or closing the device at that
// moment; an open one is left to the end of the process, and exit() alone never waits.
class SdlSoundPlayer : public SoundPlayer {
 public:
  SdlSoundPlayer() = default;
  ~SdlSoundPlayer() override;
  SdlSoundPlayer(const SdlSoundPlayer&) = delete;
  SdlSoundPlayer& operator=(const SdlSoundPlayer&) = delete;

  // The path is always a file's name and the sound always asynchronous, without a default in its place.
  bool PlaySound(const std::string& path, std::uint32_t flags) override;

 private:
  void Run();
  bool WaitForOrder(const AudioDevice& device, std::unique_lock<std::mutex>& lock);
  void Play(WaveStream& sound, AudioDevice& device, std::unique_lock<std::mutex>& lock);
  bool HasOrder() const { return cut_off_ || stop_; }

  std::mutex mutex_;                 // over all that follows but the thread
  std::condition_variable ordered_;  // an order for the thread
  std::condition_variable answered_;
  bool stop_ = false;
  bool cut_off_ = false;              // end the sound that plays, and play this one if there is one
  std::unique_ptr<WaveStream> next_;  // null: silence
  std::optional<bool> answer_;        // whether the device opened for the last order

  std::thread worker_;
};

}  // namespace quorvale
