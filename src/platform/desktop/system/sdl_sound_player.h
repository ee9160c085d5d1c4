#pragma once

#include <SDL_audio.h>

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/desktop/system/wave_stream.h"
#include "system/sound_player.h"

namespace quorvale {

// The sound device, in the output format of `WaveStream`. While it is open, threads of SDL wake dozens of times a
// second, so it is closed after some silence.
class AudioDevice {
 public:
  AudioDevice();
  ~AudioDevice() { Close(); }
  AudioDevice(const AudioDevice&) = delete;
  AudioDevice& operator=(const AudioDevice&) = delete;

  // False if the machine has none. Takes a few milliseconds. Does nothing if it is open.
  bool Open();
  bool IsOpen() const { return device_ != 0; }

  void Queue(const std::vector<std::uint8_t>& samples) const;
  std::uint32_t QueuedBytes() const { return SDL_GetQueuedAudioSize(device_); }
  // Drops the queued samples. What the system already has, some hundredths of a second, is still played.
  void Clear() const { SDL_ClearQueuedAudio(device_); }

  // Closes the device and stops SDL's threads, also those that a failed `Open` leaves behind. Blocks for up to half a
  // second.
  void Close();

  // Leaves the device open until the process ends, which closes it without waiting.
  void Abandon();

 private:
  bool started_ = false;
  SDL_AudioDeviceID device_ = 0;
};

// Plays wave files. A thread, started with the first sound, opens the device, feeds it, and closes it after a second of
// silence. After that no thread wakes until the next sound.
//
// The destructor waits for the thread only while it opens or closes the device. An open device is left to the end of
// the process.
class SdlSoundPlayer : public SoundPlayer {
 public:
  SdlSoundPlayer() = default;
  ~SdlSoundPlayer() override;
  SdlSoundPlayer(const SdlSoundPlayer&) = delete;
  SdlSoundPlayer& operator=(const SdlSoundPlayer&) = delete;

  // `flags` is ignored: `path` is always a file, and the sound asynchronous and without a default sound.
  bool PlaySound(const std::string& path, std::uint32_t flags) override;

 private:
  void Run();
  bool WaitForCommand(const AudioDevice& device, std::unique_lock<std::mutex>& lock);
  void Play(WaveStream& sound, AudioDevice& device, std::unique_lock<std::mutex>& lock);
  bool HasCommand() const { return cut_off_ || stop_; }

  std::mutex mutex_;                   // guards all members below except the thread
  std::condition_variable commanded_;  // wakes the thread
  std::condition_variable answered_;
  bool stop_ = false;                 // command: end the thread
  bool cut_off_ = false;              // command: end the current sound and start `next_`
  std::unique_ptr<WaveStream> next_;  // null: silence
  std::optional<bool> answer_;        // whether the device opened for the last command

  std::thread worker_;
};

}  // namespace quorvale
