#pragma once

#include <SDL_audio.h>

#include <cstdint>
#include <vector>

namespace quorvale {

// The sound device, in the output format of WaveStream. While it is open the library's threads wake
// dozens of times a second, silent or not, so it should not stay open for nothing.
class AudioDevice {
 public:
  AudioDevice();
  ~AudioDevice() { Close(); }
  AudioDevice(const AudioDevice&) = delete;
  AudioDevice& operator=(const AudioDevice&) = delete;

  // False on a machine without one. Takes a few milliseconds; does nothing when it is open.
  bool Open();
  bool IsOpen() const { return device_ != 0; }

  // Puts samples behind those that wait to be played.
  void Queue(const std::vector<std::uint8_t>& samples) const;
  std::uint32_t QueuedBytes() const { return SDL_GetQueuedAudioSize(device_); }
  // Drops what waits; some hundredths of a second that the system already has play on.
  void Clear() const { SDL_ClearQueuedAudio(device_); }

  // Closes the device and stops the library's threads, also those that a failed Open leaves. Blocks for up
  // to half a second.
  void Close();

  // Leaves an open device to the end of the process, which closes it without waiting.
  void Abandon();

 private:
  bool started_ = false;
  SDL_AudioDeviceID device_ = 0;
};

}  // namespace quorvale
