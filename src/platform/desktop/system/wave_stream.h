#pragma once

#include <SDL_audio.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/desktop/system/wave_file.h"

namespace quorvale {

// The one format that the device is opened in. Sounds of every other are converted to it.
inline constexpr int kOutputRate = 44'100;  // Hz
inline constexpr SDL_AudioFormat kOutputFormat = AUDIO_S16SYS;
inline constexpr int kOutputChannels = 2;
inline constexpr int kOutputBytesPerSecond = kOutputRate * kOutputChannels * 2;

// A wave file, decoded and converted to the output format as it is read.
class WaveStream {
 public:
  // Decodes the beginning. Null for what is missing, damaged there or in a coding that is not known.
  static std::unique_ptr<WaveStream> Open(const std::string& path);

  // The next samples in the output format; empty at the end, and where memory for more runs out.
  std::vector<std::uint8_t> Read();

 private:
  struct FreeStream {
    void operator()(SDL_AudioStream* stream) const { SDL_FreeAudioStream(stream); }
  };

  explicit WaveStream(WaveFile file) : file_(std::move(file)) {}
  std::vector<std::uint8_t> NextSamples();
  bool DecodePiece();
  void PushOut();

  WaveFile file_;
  SDL_AudioSpec spec_{};  // of the decoded samples
  std::unique_ptr<SDL_AudioStream, FreeStream> converter_;
  bool at_end_ = false;
};

}  // namespace quorvale
